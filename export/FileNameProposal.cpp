#include "export/FileNameProposal.h"

#include <algorithm>

std::optional<QString> proposeFileName(const QString& title, const QString& sourcePath,
                                       std::int32_t partNumber, const QString& format)
{
    // Kept: the extension is in capitals behind a title and in small letters behind a number.
    if (!title.isEmpty()) return title + QLatin1Char('.') + format;
    const QString built = sourcePath.chopped(std::min<qsizetype>(4, sourcePath.size())) +
                          QStringLiteral("-Part ") + QString::number(partNumber) + QLatin1Char('.') +
                          format.toLower();
    const qsizetype separator = built.lastIndexOf(QLatin1Char('/'));
    if (separator < 0) return std::nullopt;
    return built.mid(separator + 1);
}
