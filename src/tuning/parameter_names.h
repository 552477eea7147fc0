#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tuning {

// What a name stands for: a parameter or a calibration record, by its number in its table.
struct RecordName {
    bool calibration = false;
    std::size_t number = 0;
};

// Finds a record by the text of its name, as fields and logs write it: "ValMin(1)", "Giri_Lambda(24)", "SogliaFG",
// "TPS(4)", or "Memoria(333)" for any parameter by its number. Nothing for any other text: case, brackets and number
// must be exact, without blanks, signs or leading zeros. Does not allocate.
std::optional<RecordName> FindRecord(std::string_view text);

}  // namespace tuning
