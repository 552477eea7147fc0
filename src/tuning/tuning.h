#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "memory/memory.h"
#include "tuning/calibration_map.h"
#include "tuning/cell_reader.h"
#include "tuning/conversions.h"
#include "tuning/imposta.h"
#include "tuning/messa_p.h"
#include "tuning/messal1.h"
#include "tuning/parameter_map.h"

namespace tuning {

// The tuning side: what the cells of the image held mean.
struct Tuning {
    explicit Tuning(memory::Memory& owner);
    Tuning(const Tuning&) = delete;
    Tuning& operator=(const Tuning&) = delete;

    memory::Memory& memory;
    std::string image;  // of the unit connected, as decoded last: 4096 digits
    MemoriaTable memoria;
    CalibrationTable calibration;
    MessaP messaP{*this};
    Imposta imposta{*this};
    MessaL1 messaL1{*this};

    // Reads cells of the image held; the reader must not outlive this object.
    CellReader Cells() const;
    // What the conversions depend on now, with the selectors as edited; and with those of the unit, which show Dato(0).
    Context CurrentContext() const;
    Context InitialContext() const;

  private:
    Context WithSelectors(std::size_t slot) const;
};

// Fills every parameter record and every calibration record from its row; no figure of an image stands in them.
void CostruisciMemoria(Tuning& tuning);

// The count of a parameter's cell in an image text; erased where the text is too short.
std::uint32_t ValoreCella(std::string_view image, const Record& record);

// Decodes the image in the two area files: image-wide cells, calibration values, parameter records with their limits.
// Of a blank image nothing but code and date is taken: calibration values are 0, and a limit that a cell would give is
// as wide as the cell. The inspector's file is deleted. False when it cannot be, or when one of the area files cannot
// be read; a short one reads as erased where it ends.
bool DecodificaImmagine(Tuning& tuning);

// Sets the limits of every record by the image held, as it stands now. While that is blank, or none is held, no cell
// gives any: its bounds are as wide as the cell.
void SetLimits(Tuning& tuning);
// Those alone that follow the figures of one record.
void FollowNeighbour(Tuning& tuning, std::size_t changed);

// No unit is connected: nothing that its image said stands any more, and no sensor counts as acquired.
void ForgetImage(Tuning& tuning);

}  // namespace tuning
