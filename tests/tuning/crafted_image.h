#pragma once

#include <cstdint>
#include <map>

#include "tuning/cell_reader.h"

namespace tuning_test {

// An image of a few cells; all others are erased.
class CraftedImage {
  public:
    void Put(int address, std::uint32_t value) { cells_[address] = value; }

    tuning::CellReader Reader() const {
        return [this](int address, int bytes) {
            const auto found = cells_.find(address);
            const std::uint32_t erased = bytes == 1 ? 0xFF : 0xFFFF;
            return found == cells_.end() ? erased : found->second;
        };
    }

  private:
    std::map<int, std::uint32_t> cells_;
};

}  // namespace tuning_test
