#include "cutpoints/PartRows.h"

#include "core/Numbers.h"
#include "core/TimeText.h"

namespace {

// Every record that begins there writes, so of two the last one wins.
QString titleAt(std::int32_t sample, std::span<const PartRecord> parts)
{
    QString title;
    for (const PartRecord& part : parts)
        if (part.StartSample == sample) title = part.Title;
    return title;
}

}

std::vector<PartRow> partRows(std::span<const std::int32_t> cuts, std::int32_t count,
                              std::int32_t totalSamples, std::int32_t rate, std::span<const PartRecord> parts)
{
    std::vector<PartRow> rows;
    if (count < 1) return rows;
    const auto known = parts.first(std::min(parts.size(), static_cast<std::size_t>(count) + 1));
    for (std::int32_t r = 1; r <= count + 1; ++r) {
        const bool isLast = r == count + 1;
        const std::int32_t start = r == 1 ? 0 : cuts[static_cast<std::size_t>(r - 1)];
        const std::int32_t end = isLast ? totalSamples : cuts[static_cast<std::size_t>(r)] - 1;
        rows.push_back({QStringLiteral("Part.") + twoDigits(r), sampleText(start, rate),
                        sampleText(end, rate), sampleText(end - start, rate), titleAt(start, known),
                        QString::number(start)});
    }
    return rows;
}
