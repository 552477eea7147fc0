#pragma once

#include <array>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "pages/page.h"
#include "platform/timer.h"
#include "tuning/messal1_frames.h"
#include "tuning/parameter_map.h"

namespace tuning {

struct Tuning;

inline constexpr int DisplayInterval = 200;  // ms, of the live figures
inline constexpr int ReadingTable = 164;     // transaction states of the reads
inline constexpr int ReadingAgain = 167;
inline constexpr int PointsInUnit = 1;                  // the sensor line that stands in the unit
inline constexpr int OverSpeedColumn = MapColumns - 1;  // the end of the axis is the over-speed threshold
inline constexpr int LiveFigures = 6;  // revolutions, pressure, stepper, temperature, probe, correction

// The editor of the base map: 16 columns by revolutions, 8 rows by pressure. Its grid shows the axes as header row and
// column; they are edited in the fields Giri and MAPV.
struct MessaL1 : pages::Page {
    explicit MessaL1(Tuning& owner);

    pages::Label LabGiri{*this, "LabGiri"};
    pages::Array<pages::Field> Giri{*this, "Giri", MapColumns};
    pages::Label LabMAPV{*this, "LabMAPV"};
    pages::Array<pages::Field> MAPV{*this, "MAPV", MapRows};  // in mbar
    pages::Grid LambdaRicco{*this, "LambdaRicco"};
    pages::Array<pages::Label> LabAuto{*this, "LabAuto", LiveFigures};
    pages::Array<pages::Label> DatiAuto{*this, "DatiAuto", LiveFigures};
    pages::Array<pages::Label> UmAuto{*this, "UmAuto", LiveFigures};
    pages::Label LabStorico{*this, "LabStorico"};  // what a store does besides
    pages::Label Segnalazione{*this, "Segnalazione"};
    pages::Label Avanzamento{*this, "Avanzamento"};  // how far an exchange is, in percent; hidden while none runs
    pages::Button Modifica{*this, "Modifica"};
    pages::Button Distribuisci{*this, "Distribuisci"};
    pages::Button LimDistr{*this, "LimDistr"};
    pages::Button Memorizza{*this, "Memorizza"};
    pages::Button RileggoReset{*this, "RileggoReset"};
    pages::Button Esci{*this, "Esci"};

    std::unique_ptr<platform::Timer> TVis;

    // Whether figures on the page differ from those of the unit.
    bool Unsaved() const;

  protected:
    void Opening() override;
    void Closed() override;

  private:
    // A chain of frames and the state in which it waits for its replies.
    struct Stretch {
        int state;
        std::string chain;
    };

    // The page and its edits.
    void LoadTexts();
    void ShowMap(const BaseMap& map);
    void ShowCells(const BaseMap& map);
    void SetEditing(bool on);
    void SetTableWhy(pages::Reason why);
    void GiriLeft(int column);
    void MAPVLeft(int row);
    void RefuseOverSpeed(const Record& limits);
    void TakeAxis(pages::Field& field, int row, int column, const std::string& figure);
    void WarnOfAxis(pages::Array<pages::Field>& axis);
    std::string AxisText(int row, int column) const;
    void CellLeft(int row, int column, const std::string& text);
    void Edited();
    void MarkChanges();
    bool CellChanged(int cell) const;
    void Spread();
    void TellAnchors();
    void Leave();
    void Tell(std::string text) { Say(pages::Tone::Plain, std::move(text)); }
    void Say(pages::Tone tone, std::string text);
    const std::string& CellText(int cell) const;
    void SetCellText(int cell, const std::string& text);
    BaseMap MapOnPage();

    // Exchanges with the unit.
    void AddStates();
    void BeginReading(int state, std::vector<MapFrame> reads);
    bool ReadReply(const std::string& frame, void (MessaL1::*done)());
    void TableRead();
    void TableReadAgain();
    void Store();
    bool StoreReply();
    void AddStretch(int state, const std::vector<MapFrame>& frames);
    void Stored();
    void BrokenOff(pages::Tone tone, std::string text);
    void ShowHeld();
    void Begin(std::string text, std::size_t frames);
    void ShowProgress();
    void Finish(pages::Tone tone, std::string text);
    void ReadingFailed();

    // The engine beside the map.
    void LoadLiveTexts();
    void ShowLive();
    void MarkPresentCell();

    Tuning& tuning_;
    bool editing_ = false;
    bool tableRead_ = false;
    bool halfStored_ = false;                    // a store broke off: the unit holds a part of it
    BaseMap held_;                               // what the unit holds
    std::array<std::string, MapRows> readMAPV_;  // the pressures as they were shown for it
    BaseMap moving_;                             // what is being read or stored
    std::vector<MapFrame> reads_;
    std::vector<MapFrame> writes_;   // of the store, in their order
    std::deque<Stretch> stretches_;  // of the store, still to be sent
    std::size_t replies_ = 0;
    std::size_t frames_ = 0;
};

}  // namespace tuning
