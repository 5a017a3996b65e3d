#include "waveform/RulerPlan.h"

#include <algorithm>
#include <limits>

namespace {

// The sections beyond the right edge would run out of numbers in a file of a dozen hours.
std::int32_t sampleAt(Twips width, std::int32_t totalSamples, double x)
{
    const double sample = static_cast<double>(totalSamples) / width * x;
    return toLong(std::min<double>(sample, std::numeric_limits<std::int32_t>::max()));
}

}

std::vector<RulerSection> planRuler(Twips width, std::int32_t totalSamples)
{
    std::vector<RulerSection> sections;
    int xPx = 1;
    std::int32_t p = 0;
    for (;;) {
        sections.push_back({xPx, sampleAt(width, totalSamples, p)});
        if (width < p) return sections;
        xPx += rulerSectionPx;
        p = toLong(p + rulerSectionPx * twipsPerPixel);
    }
}

std::vector<BarSection> planBar(Twips width)
{
    std::vector<BarSection> sections;
    int xPx = 2;
    double p = 2 * twipsPerPixel;
    while (p + barSectionPx * twipsPerPixel < width) {
        sections.push_back({xPx, barSectionPx});
        xPx += barSectionPx;
        p += barSectionPx * twipsPerPixel;
    }
    sections.push_back({xPx, toLong((width - p) / twipsPerPixel)});
    return sections;
}
