#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "sim/bytes.h"

namespace sim {

enum class Area : std::uint8_t { Working, Esterna, Interna };

// One memory of the unit: the letters that read and write it on the wire, its first address, its size in bytes, and
// whether it is written in words of two bytes.
struct AreaRow {
    Area area;
    char read;
    char write;
    int first;
    int size;
    bool words;
};

inline constexpr std::array<AreaRow, 3> Areas{{
    {Area::Working, 'R', 'W', 0, 2048, false},
    {Area::Esterna, 'L', 'I', 0, 1024, false},
    {Area::Interna, 'O', 'S', 3072, 1024, true},
}};

inline constexpr int ErasedByte = 255;
inline constexpr int ErasedWord = 65535;
inline constexpr int MarkerCell = 3072;  // two bytes; either of them erased: the unit counts as blank

// What becomes of the FF that fills a word up when a cell of one byte is written alone.
enum class Fill : std::uint8_t { Keep, Write };  // the neighbour keeps its value, or takes the FF

// Both permanent memories and the working memory with their laws. Permanent cells erased read 255. Working memory loses
// everything with the ignition and is filled again from the permanent cells when it comes back.
class Memory {
  public:
    Memory();

    // Nothing when one of the bytes lies outside the area, or count is 0 or less.
    std::optional<Bytes> Read(Area area, int address, int count) const;
    // As the wire writes: refused (false, nothing changed) outside the area, for no bytes at all, for an odd count of
    // an area written in words, and on a protected cell.
    bool Write(Area area, int address, const Bytes& data);
    // As a programmer in the factory would write: only the area's borders count.
    bool Poke(Area area, int address, const Bytes& data);

    // 0 outside the area.
    int Byte(Area area, int address) const;
    int Word(Area area, int address) const;  // big-endian

    void LoseWorking();    // ignition off
    void ReloadWorking();  // ignition on: the live copies are taken from the permanent cells
    void EraseAll();
    bool Programmed() const;

    void SetFill(Fill fill) { fill_ = fill; }
    void Protect(int first, int count) { protected_.emplace_back(first, count); }
    void Unprotect() { protected_.clear(); }

  private:
    Bytes& Cells(Area area) { return cells_[static_cast<std::size_t>(area)]; }
    const Bytes& Cells(Area area) const { return cells_[static_cast<std::size_t>(area)]; }
    bool Inside(Area area, int address, int count) const;
    bool Protected(int address, int count) const;

    std::array<Bytes, Areas.size()> cells_;
    std::vector<std::pair<int, int>> protected_;
    Fill fill_ = Fill::Keep;
};

// The row whose reading or writing letter it is; null for any other letter.
const AreaRow* FindArea(char letter);

}  // namespace sim
