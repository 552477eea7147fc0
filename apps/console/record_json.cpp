#include "console/record_json.h"

#include <algorithm>
#include <string>

#include "link/frames/numbers.h"
#include "tuning/parameter_names.h"
#include "tuning/tuning.h"

namespace console {

namespace {

// A figure as records hold theirs: a text of 8, right-aligned.
Json FigureText(double value) {
    constexpr std::size_t Width = 8;
    const std::string text = Figure(value).dump();
    return Text(text.size() < Width ? frames::RightAlign(text, Width) : text);
}

Json OfParameter(const tuning::Record& record) {
    Json figures = Json::array();
    for (const std::string& figure : record.Dato) figures.push_back(Text(figure));
    Json out = Done();
    out["EE"] = record.EE;
    out["RAM"] = record.RAM;
    out["NByte"] = record.NByte;
    out["Min"] = Figure(record.Min);
    out["Max"] = Figure(record.Max);
    out["Dato"] = std::move(figures);
    return out;
}

Json OfCalibration(const tuning::CalibrationRecord& record) {
    Json out = Done();
    out["EE"] = record.Ind;
    out["RAM"] = std::max(record.IndW, 0);  // 0 where the cell has none, as with the parameters
    out["NByte"] = record.Dim;
    out["Min"] = nullptr;
    out["Max"] = nullptr;
    out["Dato"] = Json::array({FigureText(record.Dato)});
    out["Letto"] = FigureText(record.Letto);
    return out;
}

}  // namespace

Json OfRecord(const tuning::Tuning& tuning, std::string_view name) {
    const auto found = tuning::FindRecord(name);
    if (!found) return Failure("There is no record " + std::string(name) + ".");
    if (found->calibration) return OfCalibration(tuning::RecordAt(tuning.calibration, found->number));
    return OfParameter(tuning.memoria[found->number]);
}

}  // namespace console
