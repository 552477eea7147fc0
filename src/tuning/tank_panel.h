#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "pages/page.h"
#include "platform/timer.h"
#include "tuning/page_controls.h"

namespace tuning {

struct Tuning;

inline constexpr int TankLevels = 7;

// The live tank level against the seven levels of the page: a bar, the lamps of the dashboard, the curve; and the
// levels taken from the tank as it is filled.
class TankPanel {
  public:
    TankPanel(pages::Page& page, Tuning& tuning, PageControls& controls);

    // A level of the tank has been taken from the sensor; no figure: its field goes back to what it was.
    std::function<void(std::size_t record, const std::string& figure)> onTaken;
    // A level was to be taken and the sensor says nothing.
    std::function<void()> onNoReading;

    // On the page of the levels alone; anywhere else nothing is armed and nothing blinks.
    void Show(bool visible);
    // A level that is being taken goes back to what it was.
    void Rest();
    void SetWhy(pages::Reason why);
    // A key has reached the field of a record: a level that is being taken there is typed instead.
    void Typed(std::size_t record);
    // Looks at the sensor and at the levels.
    void Follow();

    pages::Chart Livello;     // a row for each level, its name and its count; the text is the live count
    pages::Label LabLivello;  // name of the level reached
    pages::Label BarraS;      // percent of the way from the lowest level to the highest
    pages::Lamp LedRis;
    pages::Lamp LedLiv1;
    pages::Lamp LedLiv2;
    pages::Lamp LedLiv3;
    pages::Lamp LedLive;
    pages::Lamp LedMax;
    pages::Array<pages::Button> Acquisisci;

  private:
    void Press(int level);
    void Arm(int level);
    void FollowArmed(const std::optional<double>& live);
    void ShowCurve(const std::optional<double>& live);
    void ShowBar(const std::optional<double>& live);
    void ShowLeds();
    std::optional<double> LiveLevel() const;
    double Level(int level) const;
    // The highest level that the tank has reached; -1 below the lowest.
    int Reached(const std::optional<double>& live) const;

    Tuning& tuning_;
    PageControls& controls_;
    bool visible_ = false;
    int armed_ = -1;
    int reached_ = -1;
    bool known_ = false;  // the sensor says something
    bool lit_ = true;     // the lamp that blinks
    std::unique_ptr<platform::Timer> lampeggio_;
};

}  // namespace tuning
