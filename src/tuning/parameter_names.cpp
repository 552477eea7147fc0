#include "tuning/parameter_names.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <compare>

#include "tuning/calibration_map.h"
#include "tuning/parameter_table.h"

namespace tuning {
namespace {

struct Key {
    std::string_view name;
    int number = -1;

    constexpr auto operator<=>(const Key&) const = default;
};

struct Entry {
    Key key;
    RecordName target;
};

constexpr std::size_t CountNamed() {
    return static_cast<std::size_t>(
        std::count_if(table::Rows.begin(), table::Rows.end(), [](const Row& row) { return !row.name.empty(); }));
}

constexpr bool Before(const Entry& a, const Entry& b) {
    return a.key < b.key;
}

// Sorted by name and number.
constexpr auto BuildEntries() {
    std::array<Entry, CountNamed() + CalibrationCount> entries{};
    std::size_t next = 0;
    for (std::size_t i = 0; i < MemoriaCount; ++i) {
        const Row& row = table::Rows[i];
        if (!row.name.empty()) entries[next++] = {{row.name, row.number}, {false, i}};
    }
    for (std::size_t i = 0; i < CalibrationCount; ++i) {
        entries[next++] = {{CalibrationRows[i].name, CalibrationRows[i].number}, {true, i}};
    }
    std::sort(entries.begin(), entries.end(), Before);
    return entries;
}

constexpr auto Entries = BuildEntries();

static_assert(std::adjacent_find(Entries.begin(), Entries.end(),
                                 [](const Entry& a, const Entry& b) { return a.key == b.key; }) == Entries.end(),
              "two records bear one name");

// Splits "Name(12)"; a text without brackets is a name that stands alone.
std::optional<Key> Parse(std::string_view text) {
    const std::size_t open = text.find('(');
    if (open == std::string_view::npos) return Key{text, -1};
    if (text.back() != ')') return std::nullopt;
    const std::string_view digits = text.substr(open + 1, text.size() - open - 2);
    const bool leadingZero = digits.size() > 1 && digits.front() == '0';
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size() || leadingZero || number < 0) return std::nullopt;
    return Key{text.substr(0, open), number};
}

}  // namespace

std::optional<RecordName> FindRecord(std::string_view text) {
    const std::optional<Key> key = Parse(text);
    if (!key) return std::nullopt;
    if (key->name == "Memoria") {
        const auto number = static_cast<std::size_t>(key->number);  // a name without number is beyond every record
        return number < MemoriaCount ? std::optional(RecordName{false, number}) : std::nullopt;
    }
    const auto found = std::lower_bound(Entries.begin(), Entries.end(), Entry{*key, {}}, Before);
    if (found == Entries.end() || found->key != *key) return std::nullopt;
    return found->target;
}

}  // namespace tuning
