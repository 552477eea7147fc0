#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tuning/page_rows.h"

namespace tuning {

struct Tuning;

// Which of its homes a record is written to. A record whose working address belongs to another cell has a permanent
// cell alone, and takes no part in a trial: what it would change in the engine is not its own.
enum class Homes : std::uint8_t {
    Working,    // its live copy; nothing for a record without one
    Trial,      // its live copy; its permanent cell where it has none
    Both,       // its live copy, then its permanent cell
    Permanent,  // its permanent cell
};

// One frame of a chain of writes.
struct PageWrite {
    std::size_t record = MemoriaCount;
    bool permanent = false;
    std::uint32_t count = 0;  // what goes into the cell
    std::string figure;       // what the page showed for it
    std::string Frame() const;
};

// The reads of a page: a frame for each field, then the blocks of its tables and the further cells.
std::string PageReads(const PageRow& page);
// The cells that the frame in front of a chain of reads asks for.
Block FirstRead(std::string_view chain);
// Puts the cells of a reply into every record that lies among them, and into the image held. False, and nothing
// taken, when they are not as many hexadecimal digits as were asked for.
bool TakeCells(Tuning& tuning, const Block& cells, std::string_view digits);

// The write in front of a chain has been confirmed: what it put into permanent cells, image and records hold now.
void TakeConfirmed(Tuning& tuning, std::string_view chain);

// The writes of records with the figures of a slot: 0 as read, 1 as edited. A figure that stands for no count is left
// out.
std::vector<PageWrite> PageWrites(const Tuning& tuning, const std::vector<std::size_t>& records, std::size_t slot,
                                  Homes homes);
// A permanent cell has taken a write: the image held follows, and every other record of the cell. `stored`: it is now
// what the unit holds for good, and so the record's initial value.
void TakeWritten(Tuning& tuning, const PageWrite& write, bool stored);

}  // namespace tuning
