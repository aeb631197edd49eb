// Feeds bytes to the import of old input files, behind five lines that make them one; then computes
// from what was read, for a computation must take every project that opens.

#include "kcompute/Analysis.h"
#include "kcompute/KText.h"
#include "tests/fuzz/FuzzProperties.h"

#include <cmath>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    quarnel::fuzz::CheckOpening(bytes);
    std::string old = "title\r\nclient\r\njob\r\nlabel\r\n H Le Lw\r\n";
    old += bytes;

    quarnel::Analysis analysis;
    analysis.state = quarnel::fuzz::CheckOpening(old);
    if (quarnel::PrepareComputation(analysis).result.IsError())
        return 0;
    const bool failed = quarnel::Compute(analysis).IsError();
    quarnel::fuzz::Require(failed == (analysis.computation == nullptr));
    quarnel::fuzz::Require(failed || std::isfinite(analysis.computation->KInCmPerSec));
    quarnel::fuzz::Require(
        quarnel::ShowComputedK(analysis.state, analysis.computation.get()).empty() == failed);
    return 0;
}
