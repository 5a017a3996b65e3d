// The only place that converts numbers: rounding, overflow, division, text. A fault is a ConversionError.
#pragma once

#include <QString>

#include <cstdint>

/// Positions on the waveform: 1/1440 inch, 15 to a logical pixel, kept in single precision.
using Twips = float;

inline constexpr double twipsPerPixel = 15.0;

/// Nearest integer, a tie going to the even one. Throws when the result doesn't fit 32 bits.
std::int32_t toLong(double value);

/// The same for 16 bits.
std::int16_t toInteger(double value);

/// Remainder with the sign of the dividend. Throws on a divisor of 0.
std::int32_t checkedMod(std::int32_t dividend, std::int32_t divisor);

/// A number in a text, blanks around it allowed, rounded as by `toLong`. Throws on anything else, ""
/// included.
std::int32_t parseLong(const QString& text);

/// The same for 16 bits.
std::int16_t parseInteger(const QString& text);

/// "True" and "False" in any case, or a number, of which 0 is false. Throws on anything else.
bool parseBoolean(const QString& text);

/// "True" or "False".
QString booleanText(bool value);

/// At least two digits: 7 gives "07", 123 gives "123", -5 gives "-05".
QString twoDigits(std::int32_t value);
