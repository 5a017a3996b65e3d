// Which sound of an AVI file is taken, and how it is coded in truth.
#pragma once

#include "engine/AviFile.h"

#include <memory>

/// A file that we walk through ourselves.
struct AviSource {
    AviFile avi;
    AviSound sound;      ///< the first that a decoder opens, as the header has it
    CodecSetup codec;    ///< as its first packets show it; the header often has the codec or the rate wrong
};

/// Empty where the file is no AVI, or nothing in it that we understand can be decoded.
std::optional<AviSource> findAviSource(const std::shared_ptr<const SourceFile>& file);
