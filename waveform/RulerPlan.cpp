#include "waveform/RulerPlan.h"

#include "core/WaveScale.h"

std::vector<RulerSection> planRuler(Twips width, std::int32_t totalSamples)
{
    std::vector<RulerSection> sections;
    int xPx = 1;
    std::int32_t p = 0;
    for (;;) {
        sections.push_back({xPx, sampleOfX(width, totalSamples, p)});
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
