#include "core/Numbers.h"

#include "core/Errors.h"

#include <cmath>
#include <limits>

namespace {

template <typename Int>
Int rounded(double value)
{
    const double r = std::nearbyint(value);
    if (!(r >= std::numeric_limits<Int>::min() && r <= std::numeric_limits<Int>::max()))
        throw ConversionError(QStringLiteral("a number is too large"));
    return static_cast<Int>(r);
}

double parseNumber(const QString& text)
{
    bool isNumber = false;
    const double value = text.trimmed().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value))
        throw ConversionError(QStringLiteral("\"%1\" is no number").arg(text));
    return value;
}

}

std::int32_t toLong(double value)
{
    return rounded<std::int32_t>(value);
}

std::int16_t toInteger(double value)
{
    return rounded<std::int16_t>(value);
}

std::int32_t checkedMod(std::int32_t dividend, std::int32_t divisor)
{
    if (divisor == 0) throw ConversionError(QStringLiteral("division by zero"));
    return static_cast<std::int32_t>(std::int64_t{dividend} % divisor);
}

std::int32_t parseLong(const QString& text)
{
    return toLong(parseNumber(text));
}

std::int16_t parseInteger(const QString& text)
{
    return toInteger(parseNumber(text));
}

bool parseBoolean(const QString& text)
{
    const QString word = text.trimmed();
    if (word.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) return true;
    if (word.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) return false;
    return parseNumber(word) != 0;
}

QString booleanText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

QString twoDigits(std::int32_t value)
{
    const QString digits = QString::number(std::abs(std::int64_t{value})).rightJustified(2, QLatin1Char('0'));
    return value < 0 ? QLatin1Char('-') + digits : digits;
}
