// Prints the parameter table as Markdown. With `--check FILE` it prints nothing and fails when FILE is not that text,
// so that the committed page cannot fall behind the table.

#include <array>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>

#include "tuning/calibration_map.h"
#include "tuning/parameter_map.h"

namespace {

using tuning::Bound;
using tuning::Conversion;
using tuning::Row;
using tuning::Source;

std::string NameText(std::string_view name, int number) {
    if (name.empty()) return "";
    std::string text = "`" + std::string(name);
    if (number >= 0) text += "(" + std::to_string(number) + ")";
    return text + "`";
}

std::string AddressText(int address, int none) {
    return address == none ? "-" : std::to_string(address);
}

std::string BoundText(const Bound& bound) {
    const std::string value = std::to_string(bound.value);
    switch (bound.source) {
        case Source::Constant:
            return value;
        case Source::Cell:
            return "cell " + value;
        case Source::Dato0:
            return "figure read from " + value;
        case Source::Dato1:
            return "figure edited of " + value;
        case Source::SensorLow:
            return "low end of the sensor";
        case Source::SensorHigh:
            return "high end of the sensor";
        case Source::SameCell:
            return "as the other record of the cell";
    }
    return "";
}

std::string ConversionText(const Row& row) {
    switch (row.conversion) {
        case Conversion::Count:
            return "count";
        case Conversion::Lambda:
            return "probe threshold";
        case Conversion::Speed:
            return "steps a second";
        case Conversion::Pressure:
            return "mbar";
        case Conversion::CutOffThreshold:
            return "by `SogliaTM`";
        case Conversion::IdleThreshold:
            return "by `SogliaMin`";
        case Conversion::Throttle:
            return "throttle threshold";
        case Conversion::Choice:
            return "list of " + std::to_string(row.positions) +
                   (tuning::IsSwitch(row) ? ", 0 and 255 in the cell" : "");
        case Conversion::SpeedChoice:
            return "list of " + std::to_string(row.positions);
    }
    return "";
}

void PrintParameter(std::ostream& out, std::size_t number, const tuning::Record& record) {
    const Row& row = *record.row;
    if (row.name.empty()) {
        out << "| " << number << " | spare | | | | | | | |\n";
        return;
    }
    const std::size_t figure = record.Dato[0].find_first_not_of(' ');
    out << "| " << number << " | " << NameText(row.name, row.number) << " | " << AddressText(row.EE, tuning::NoAddress)
        << " | " << AddressText(row.RAM, tuning::NoWorkingCopy) << " | " << row.NByte << " | " << BoundText(row.min)
        << " | " << BoundText(row.max) << " | " << ConversionText(row) << " | "
        << (figure == std::string::npos ? "" : record.Dato[0].substr(figure)) << " |\n";
}

void PrintParameters(std::ostream& out) {
    const auto memoria = std::make_unique<tuning::MemoriaTable>();
    tuning::CostruisciMemoria(*memoria);
    out << "| `Memoria` | Name | `EE` | `RAM` | Bytes | `Min` | `Max` | Shown as | New installation |\n"
           "|---|---|---|---|---|---|---|---|---|\n";
    for (std::size_t i = 0; i < memoria->size(); ++i) PrintParameter(out, i, (*memoria)[i]);
}

std::string_view CodingText(tuning::Coding coding) {
    using enum tuning::Coding;
    switch (coding) {
        case Number:
            return "the number";
        case Probe:
            return "0, 1, 2; other: 0";
        case Absorb:
            return "0, 1, and 2 where the family of the unit has differential probes; other: 0";
        case Binary:
            return "0, 1; other: 0";
        case OnOff:
            return "0; other: 1";
        case Wheel:
            return "255, 254, 170 for 0, 1, 2; other: 0";
        case Sensor:
            return "255, 17 for 0, 1; other: 2";
    }
    return "";
}

void PrintCalibration(std::ostream& out) {
    out << "| Name | `Ind` | `IndW` | `Dim` | The cell holds |\n|---|---|---|---|---|\n";
    for (const tuning::CalibrationRow& row : tuning::CalibrationRows) {
        out << "| " << NameText(row.name, row.number) << " | " << row.Ind << " | "
            << AddressText(row.IndW, tuning::NoWorkingAddress) << " | " << row.Dim << " | " << CodingText(row.coding)
            << " |\n";
    }
}

std::string Page() {
    std::ostringstream out;
    out << "# Parameters\n\n"
           "Made from the parameter table by `parameter_doc`; do not edit.\n\n"
           "Addresses below 3072 lie in `ESTERNA`, the others in `INTERNA`. `RAM` is the live copy in the unit. "
           "Limits\n"
           "are in the unit of the page; those of probe and throttle thresholds are counts and are shown as the "
           "thresholds\n"
           "are. A limit that names a cell is worked out from the image held, or from the figure of the record of that "
           "cell.\n"
           "Multi-byte cells have their most significant byte first.\n\n"
           "## The "
        << tuning::MemoriaCount << " records of `Memoria`\n\n";
    PrintParameters(out);
    out << "\n## The " << tuning::CalibrationCount << " calibration records\n\n";
    PrintCalibration(out);
    return out.str();
}

bool Matches(const std::string& page, const char* file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {}) == page;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::string_view(argv[1]) == "--check") {
        if (Matches(Page(), argv[2])) return 0;
        std::cerr << argv[2] << " is not what the parameter table says: make it anew with parameter_doc\n";
        return 1;
    }
    std::cout << Page();
    return 0;
}
