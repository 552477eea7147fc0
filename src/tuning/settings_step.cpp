#include "tuning/settings_step.h"

#include <optional>
#include <string>
#include <string_view>

#include "link/frames/numbers.h"
#include "memory/image.h"
#include "memory/image_cells.h"
#include "tuning/page_figures.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

constexpr std::string_view ProgrammedMarker = "0000";

platform::Path BaseMapPath(const Tuning& tuning) {
    return tuning.memory.link.shell.FileInFolder(BaseMapFile);
}

std::optional<std::string> ReadBaseMap(const Tuning& tuning) {
    auto content = tuning.memory.link.shell.host.files.Read(BaseMapPath(tuning));
    if (!content || content->size() != memory::ImageFileSize) return std::nullopt;
    return content;
}

// Digits over those of a cell; the cells of these pages never cross the end of a line.
void PutDigits(std::string& content, int address, std::string_view digits) {
    const memory::RecordPlace place = memory::RecordImmagine(address);
    const auto at = static_cast<std::size_t>((place.record - 1) * memory::LineLength + place.column - 1);
    content.replace(at, digits.size(), digits);
}

}  // namespace

bool TakeFromBaseMap(Tuning& tuning, const std::vector<std::size_t>& records) {
    if (!ReadBaseMap(tuning)) return false;
    const auto image = memory::LeggiImmagine(tuning.memory.link.shell.host.files, BaseMapPath(tuning));
    if (!image) return false;
    const Context context = tuning.CurrentContext();
    for (const std::size_t number : records) {
        Record& record = tuning.memoria[number];
        TakeRead(record, ValoreCella(*image, record), context);
    }
    return true;
}

bool PutIntoBaseMap(Tuning& tuning, const std::vector<std::size_t>& records, bool last) {
    auto content = ReadBaseMap(tuning);
    if (!content) return false;
    const Context context = tuning.CurrentContext();
    for (const std::size_t number : records) {
        const Record& record = tuning.memoria[number];
        const auto count = Outgoing(record, 1, context);
        if (count && count != record.raw) PutDigits(*content, record.EE, frames::Hex(*count, record.NByte));
    }
    if (last) {
        shell::Shell& shell = tuning.memory.link.shell;
        if (tuning.memory.state.ScriviData == shell::True)
            PutDigits(*content, memory::DateCell, memory::DateStamp(shell.host.clock.Now()));
        PutDigits(*content, memory::MarkerCell, ProgrammedMarker);
    }
    return tuning.memory.link.shell.host.files.Write(BaseMapPath(tuning), *content);
}

}  // namespace tuning
