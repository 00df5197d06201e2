#pragma once

#include "WorldCodecs.h"

/// The fields of locks and units that tell what a search hears of them.
namespace qvm::world {

template <typename Archive>
void AirFields(Archive& archive, OnAir& air) {
    archive("signal", Number<std::uint8_t>{air.Signal, 0, 255});
    archive("scan_type", Number<std::uint8_t>{air.ScanType, 0, 255});
    archive("answers", Keyword<Answering, 4>{air.Answers, {"well", "poorly", "refusing", "never"}});
    archive("away", Flag{air.Away});
}

} // namespace qvm::world
