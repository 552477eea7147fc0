// Image files are made by people and by broken-off reads: any bytes must decode, with what cannot be read as erased.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "memory/image.h"
#include "memory/image_cells.h"
#include "tuning/limits.h"
#include "tuning/parameter_map.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string image = memory::JoinLines({reinterpret_cast<const char*>(data), size});
    const memory::ImageInfo info = memory::ReadImageInfo(image, {});
    if (info.CodiceAcq.find_first_not_of("0123456789_") != std::string::npos) std::abort();  // it names a file
    tuning::CalibrationTable calibration;
    tuning::MemoriaTable memoria;
    const tuning::CellReader cells = [&image](int address, int bytes) {
        return memory::ByteCella(image, address, bytes);
    };
    tuning::CostruisciCalibrazione(calibration);
    tuning::CostruisciMemoria(memoria);
    tuning::DecodeCalibration(calibration, cells, info.programmed, true);
    tuning::Context context = tuning::ContextOf(calibration, false, true);
    tuning::TakeSelectors(context, memoria, cells);
    tuning::SetLimits(memoria, cells, context);
    std::string fixed = image;
    memory::ApplyFixUps(fixed);
    if (fixed.size() != image.size()) std::abort();
    return 0;
}
