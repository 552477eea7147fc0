#include <algorithm>

#include "sim/image.h"
#include "sim/scenario.h"

namespace sim {

namespace {

constexpr int LongestCells = 1024;

// Fault n of 1 to 8 stands at 3952 + 2 (n - 1), fault 9 at 3950; logged means any first byte but FF.
constexpr int Faults9 = 9;
constexpr int FaultsAt = 3952;
constexpr int Fault9At = 3950;
constexpr std::uint8_t Logged = 1;

Parsed Usage() {
    return Action{};
}

Answer Cells(const Memory& memory, Area area, int address, int count) {
    const auto bytes = memory.Read(area, address, count);
    if (!bytes) return Refusal("outside the memory");
    return {true, {}, {{"data", ToHex(*bytes)}}};
}

const AreaRow* ParseArea(const std::string& word) {
    return word.size() == 1 ? FindArea(word.front()) : nullptr;
}

Parsed ParseRead(const Words& arguments) {
    if (arguments.size() != 3) return Usage();
    const AreaRow* const row = ParseArea(arguments[0]);
    const auto address = Decimal(arguments[1]);
    const auto count = Decimal(arguments[2]);
    if (row == nullptr || !address || !count || *count < 1 || *count > LongestCells) return Usage();
    return Action([area = row->area, address = *address, count = *count](Parts& parts) {
        return Cells(parts.memory, area, address, count);
    });
}

Parsed ParseCell(const Words& arguments) {
    if (arguments.size() != 2 && arguments.size() != 3) return Usage();
    const AreaRow* const row = ParseArea(arguments[0]);
    const auto address = Decimal(arguments[1]);
    const auto data = arguments.size() == 3 ? FromHex(arguments[2]) : std::optional(Bytes{});
    if (row == nullptr || !address || !data) return Usage();
    if (arguments.size() == 2) {
        return Action(
            [area = row->area, address = *address](Parts& parts) { return Cells(parts.memory, area, address, 1); });
    }
    if (data->empty()) return Usage();
    return Action([area = row->area, address = *address, data = *data](Parts& parts) -> Answer {
        if (!parts.memory.Poke(area, address, data)) return Refusal("outside the memory");
        return Cells(parts.memory, area, address, static_cast<int>(data.size()));
    });
}

Answer LoadImageFile(Parts& parts, const std::string& name) {
    if (parts.files == nullptr) return Refusal("no files can be read here");
    const auto text = parts.files->Read(parts.folder / name);
    if (!text) return Refusal(InQuotes(name) + " cannot be read");
    if (!LoadImageText(*text, parts.memory)) {
        return Refusal(InQuotes(name) + " is no image: 128 lines of 32 hexadecimal digits, 4352 bytes");
    }
    return {};
}

Parsed ParseImage(const Words& arguments) {
    if (arguments.size() != 1) return Usage();
    return Action([name = arguments[0]](Parts& parts) -> Answer {
        if (name == "programmed") {
            ProgramStandardImage(parts.memory);
            return {};
        }
        if (name == "blank") {
            parts.memory.EraseAll();
            return {};
        }
        return LoadImageFile(parts, name);
    });
}

Parsed ParseVersion(const Words& arguments) {
    if (arguments.size() != 1 || arguments[0].size() > VersionLength) return Usage();
    return Action([text = arguments[0]](Parts& parts) -> Answer {
        parts.code.version = text;
        parts.code.version.resize(VersionLength, ' ');
        return {};
    });
}

Parsed ParseReload(const Words& arguments) {
    if (!arguments.empty()) return Usage();
    return Action([](Parts& parts) -> Answer {
        parts.memory.ReloadWorking();
        return {};
    });
}

Parsed ParseProtect(const Words& arguments) {
    if (arguments.size() == 1 && arguments[0] == "off") {
        return Action([](Parts& parts) -> Answer {
            parts.memory.Unprotect();
            return {};
        });
    }
    if (arguments.size() != 2) return Usage();
    const auto first = Decimal(arguments[0]);
    const auto count = Decimal(arguments[1]);
    if (!first || !count || *count < 1) return Usage();
    return Action([first = *first, count = *count](Parts& parts) -> Answer {
        parts.memory.Protect(first, count);
        return {};
    });
}

Parsed ParseFill(const Words& arguments) {
    if (arguments.size() != 1 || (arguments[0] != "keep" && arguments[0] != "write")) return Usage();
    return Action([fill = arguments[0] == "keep" ? Fill::Keep : Fill::Write](Parts& parts) -> Answer {
        parts.memory.SetFill(fill);
        return {};
    });
}

Parsed ParseFault(const Words& arguments) {
    if (arguments.size() != 2 || (arguments[1] != "on" && arguments[1] != "off")) return Usage();
    const auto number = Decimal(arguments[0]);
    if (!number || *number < 1 || *number > Faults9) return Usage();
    const int address = *number == Faults9 ? Fault9At : FaultsAt + 2 * (*number - 1);
    const std::uint8_t value = arguments[1] == "on" ? Logged : std::uint8_t{ErasedByte};
    return Action([address, value](Parts& parts) -> Answer {
        parts.memory.Poke(Area::Interna, address, {value});
        return {};
    });
}

}  // namespace

const std::vector<Verb>& MemoryVerbs() {
    static const std::vector<Verb> verbs{
        {"image", "programmed|blank|FILE", ParseImage},
        {"version", "\"TEXT OF 10\"", ParseVersion},
        {"cell", "AREA ADDRESS [HEX]", ParseCell},
        {"read", "AREA ADDRESS COUNT", ParseRead},
        {"reload", "", ParseReload},
        {"protect", "ADDRESS COUNT|off", ParseProtect},
        {"fill", "keep|write", ParseFill},
        {"fault", "1..9 on|off", ParseFault},
    };
    return verbs;
}

}  // namespace sim
