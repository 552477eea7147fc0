#include "tuning/page_frames.h"

#include <algorithm>
#include <cctype>

#include "link/frames/build.h"
#include "link/frames/numbers.h"
#include "memory/image.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

constexpr std::size_t DigitsPerByte = 2;

bool HasCell(const Record& record) {
    return record.EE != NoAddress;
}

std::string ReadOf(const Block& cells) {
    return frames::ReadFrame(memory::IsInternal(cells.address) ? 'O' : 'L', cells.address, cells.count);
}

// A whole number field of a frame, four digits.
int FrameNumber(std::string_view frame, std::size_t at) {
    constexpr std::size_t Digits = 4;
    return at < frame.size() ? static_cast<int>(frames::ValoreNum(frame.substr(at, Digits))) : 0;
}

bool IsDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isxdigit(c) != 0; });
}

// Another record of a cell that has been stored: what stands in it now. An edit that is under way is kept, one back to
// the figure that was read too: then its twin has been edited likewise since.
void TakeHeld(Tuning& tuning, Record& record, std::uint32_t count, bool overtaken) {
    const Record before = record;
    TakeRead(record, count, tuning.CurrentContext());
    if (!overtaken && before.Dato[1] == before.Dato[0]) return;
    record.Dato[1] = before.Dato[1];
    record.shown = before.shown;
}

// The unit's selectors are other ones now: what it holds is shown by them.
void FollowInitialSelectors(Tuning& tuning, const Context& before) {
    const Context after = tuning.InitialContext();
    if (before.cutOffByPressure == after.cutOffByPressure && before.idleByPressure == after.idleByPressure) return;
    for (Record& record : tuning.memoria) {
        if (FollowsSelector(*record.row)) ShowReadAnew(record, after);
    }
}

}  // namespace

std::string PageWrite::Frame() const {
    const Row& row = ParameterRows[record];
    const std::string data = frames::Hex(count, row.NByte);
    if (!permanent) return frames::WriteFrame('W', row.RAM, row.NByte, data);
    if (!memory::IsInternal(row.EE)) return frames::WriteFrame('I', row.EE, row.NByte, data);
    // That memory is written in words.
    const std::string words = frames::PareggiaF(data);
    return frames::WriteFrame('S', row.EE, static_cast<int>(words.size() / DigitsPerByte), words);
}

std::string PageReads(const PageRow& page) {
    std::string chain;
    for (const FieldRow& field : page.fields) {
        const Row& row = ParameterRows[field.record];
        if (row.EE != NoAddress) chain += ReadOf({row.EE, row.NByte});
    }
    for (const TableRow& table : page.tables) {
        for (const Block& block : table.blocks) chain += ReadOf(block);
    }
    for (const Block& cells : page.further) chain += ReadOf(cells);
    return chain;
}

Block FirstRead(std::string_view chain) {
    constexpr std::size_t Address = 2;
    constexpr std::size_t Count = 6;
    return {FrameNumber(chain, Address), FrameNumber(chain, Count)};
}

bool TakeCells(Tuning& tuning, const Block& cells, std::string_view digits) {
    if (digits.size() != static_cast<std::size_t>(cells.count) * DigitsPerByte || !IsDigits(digits)) return false;
    memory::SetCella(tuning.image, cells.address, digits);
    for (Record& record : tuning.memoria) {
        const int offset = record.EE - cells.address;
        if (!HasCell(record) || offset < 0 || offset + record.NByte > cells.count) continue;
        const std::string_view cell = digits.substr(static_cast<std::size_t>(offset) * DigitsPerByte,
                                                    static_cast<std::size_t>(record.NByte) * DigitsPerByte);
        // A selector read just now already decides what the thresholds behind it are.
        TakeRead(record, static_cast<std::uint32_t>(frames::HexInt(cell).value_or(0)), tuning.CurrentContext());
    }
    return true;
}

void TakeConfirmed(Tuning& tuning, std::string_view chain) {
    constexpr std::size_t Letter = 1;
    constexpr std::size_t Data = 10;
    constexpr std::string_view PermanentWrites = "IS";
    std::string_view frame = frames::FirstFrame(chain);
    if (!frame.empty() && frame.back() == frames::Etx) frame.remove_suffix(1);
    if (frame.size() <= Data || PermanentWrites.find(frame[Letter]) == std::string_view::npos) return;
    TakeCells(tuning, FirstRead(frame), frame.substr(Data));
}

std::vector<PageWrite> PageWrites(const Tuning& tuning, const std::vector<std::size_t>& records, std::size_t slot,
                                  Homes homes) {
    const Context context = tuning.CurrentContext();
    std::vector<PageWrite> writes;
    for (const std::size_t number : records) {
        const Record& record = tuning.memoria[number];
        const auto count = Outgoing(record, slot, context);
        if (!HasCell(record) || !count) continue;
        const bool borrowed = record.row->borrowsRAM;
        const bool live = record.RAM != NoWorkingCopy && !borrowed;
        const bool untried = !live && !borrowed;
        const bool permanent = homes == Homes::Both || homes == Homes::Permanent || (homes == Homes::Trial && untried);
        if (live && homes != Homes::Permanent) writes.push_back({number, false, *count, record.Dato[slot]});
        if (permanent) writes.push_back({number, true, *count, record.Dato[slot]});
    }
    return writes;
}

void TakeWritten(Tuning& tuning, const PageWrite& write, bool stored) {
    Record& record = tuning.memoria[write.record];
    memory::SetCella(tuning.image, record.EE, frames::Hex(write.count, record.NByte));
    if (!stored) return;
    const Context before = tuning.InitialContext();
    record.Dato[0] = write.figure;
    record.raw = write.count;
    // The figure may have been edited, or shown by another sensor, since the frame was built.
    const bool overtaken = Outgoing(record, 1, tuning.CurrentContext()) != write.count;
    if (!overtaken) record.shown = {write.count, record.Dato[1]};
    FollowInitialSelectors(tuning, before);
    for (Record& other : tuning.memoria) {
        if (&other != &record && other.EE == record.EE) TakeHeld(tuning, other, write.count, overtaken);
    }
}

}  // namespace tuning
