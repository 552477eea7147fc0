#pragma once

#include <string>

#include "pages/page.h"

namespace eculink {

struct Link;

inline constexpr int InstrumentCount = 17;
inline constexpr int LedCount = 4;  // of the lamp row of the switch

// How the lamp row of the switch moves at each tick.
enum class RowAnimation { None, OuterInner, Runner, Halves, FlashFirst, FlashAll };

// The instrument page: always open, not modal. Figures of the live channels, the replica of the dashboard switch, and,
// while no unit is heard, why.
struct Grafici : pages::Page {
    explicit Grafici(Link& owner);

    pages::Array<pages::Label> LabMot{*this, "LabMot", InstrumentCount};    // names
    pages::Array<pages::Label> DatiMot{*this, "DatiMot", InstrumentCount};  // figures
    pages::Array<pages::Label> UmMot{*this, "UmMot", InstrumentCount};      // units of the view in force
    pages::Chart GraficoC{*this, "GraficoC"};
    pages::Picture Commu{*this, "Commu"};  // position of the switch: cell 0 to 3
    pages::Label CommuTesto{*this, "CommuTesto"};
    pages::Lamp LedC{*this, "LedC"};
    pages::Array<pages::Lamp> Led{*this, "Led", LedCount};
    pages::Array<pages::Button> Visualizzo{*this, "Visualizzo", 2};
    pages::Label Attesa{*this, "Attesa"};  // why no unit is heard; hidden while one is
    pages::Label AttesaCausa{*this, "AttesaCausa"};
    pages::Label AttesaValore{*this, "AttesaValore"};
    pages::Label AttesaRimedio{*this, "AttesaRimedio"};

    // What the animations remember.
    RowAnimation animation = RowAnimation::None;
    unsigned lit = 0;    // green lamps of the row, bit 0 the first
    bool runsUp = true;  // of the runner
    std::string centreColour = "white";

  protected:
    void Opening() override;
    void Closed() override;

  private:
    Link& link_;
};

// Instruments and switch replica after each tick, when something new has arrived.
void AggiornaPagina(Link& link);
// The instruments are open at their normal size, or have been closed or shrunk; what nobody sees is not refreshed.
void SetInstrumentsInView(Link& link, bool inView);
// Shows the other view of every channel.
void CambiaUnita(Link& link, int view);

}  // namespace eculink
