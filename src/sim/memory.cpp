#include "sim/memory.h"

#include <algorithm>

#include "sim/cells.h"

namespace sim {

namespace {

const AreaRow& Row(Area area) {
    return Areas[static_cast<std::size_t>(area)];
}

std::size_t Offset(Area area, int address) {
    return static_cast<std::size_t>(address - Row(area).first);
}

}  // namespace

Memory::Memory() {
    for (const AreaRow& row : Areas) Cells(row.area).assign(static_cast<std::size_t>(row.size), 0);
    EraseAll();
}

bool Memory::Inside(Area area, int address, int count) const {
    const AreaRow& row = Row(area);
    return count > 0 && count <= row.size && address >= row.first && address - row.first <= row.size - count;
}

std::optional<Bytes> Memory::Read(Area area, int address, int count) const {
    if (!Inside(area, address, count)) return std::nullopt;
    const auto from = Cells(area).begin() + static_cast<std::ptrdiff_t>(Offset(area, address));
    return Bytes(from, from + count);
}

bool Memory::Protected(int address, int count) const {
    return std::any_of(protected_.begin(), protected_.end(), [&](const std::pair<int, int>& range) {
        return address < range.first + range.second && address + count > range.first;
    });
}

bool Memory::Write(Area area, int address, const Bytes& data) {
    const auto count = static_cast<int>(data.size());
    if (!Row(area).words) return Poke(area, address, data);
    if (count % 2 != 0) return false;
    if (!Inside(area, address, count) || Protected(address, count)) return false;
    const bool single = count == 2 && data[1] == ErasedByte && IsByteCell(address);
    if (single && fill_ == Fill::Keep) return Poke(area, address, {data[0]});
    return Poke(area, address, data);
}

bool Memory::Poke(Area area, int address, const Bytes& data) {
    if (!Inside(area, address, static_cast<int>(data.size()))) return false;
    std::copy(data.begin(), data.end(), Cells(area).begin() + static_cast<std::ptrdiff_t>(Offset(area, address)));
    return true;
}

int Memory::Byte(Area area, int address) const {
    return Inside(area, address, 1) ? Cells(area)[Offset(area, address)] : 0;
}

int Memory::Word(Area area, int address) const {
    if (!Inside(area, address, 2)) return 0;
    const std::size_t at = Offset(area, address);
    return Cells(area)[at] * 256 + Cells(area)[at + 1];
}

void Memory::LoseWorking() {
    std::fill(Cells(Area::Working).begin(), Cells(Area::Working).end(), std::uint8_t{0});
}

void Memory::ReloadWorking() {
    LoseWorking();
    for (const LiveCopy& copy : LiveCopies) {
        const Area from = copy.permanent >= Row(Area::Interna).first ? Area::Interna : Area::Esterna;
        if (const auto bytes = Read(from, copy.permanent, copy.count)) Poke(Area::Working, copy.working, *bytes);
    }
}

void Memory::EraseAll() {
    for (const Area area : {Area::Esterna, Area::Interna}) {
        std::fill(Cells(area).begin(), Cells(area).end(), std::uint8_t{ErasedByte});
    }
    ReloadWorking();
}

bool Memory::Programmed() const {
    return Byte(Area::Interna, MarkerCell) != ErasedByte && Byte(Area::Interna, MarkerCell + 1) != ErasedByte;
}

const AreaRow* FindArea(char letter) {
    const auto* const found = std::find_if(
        Areas.begin(), Areas.end(), [letter](const AreaRow& row) { return row.read == letter || row.write == letter; });
    return found == Areas.end() ? nullptr : found;
}

}  // namespace sim
