// The text of an ini file: finds one value in it, and changes one value while every other byte stays.
#pragma once

#include <QByteArray>

/// The value of a key, without the blanks around it; "" when there is none. Sections and keys are found
/// without regard to case; of several keys of one name the first counts.
QByteArray iniValue(const QByteArray& content, const QByteArray& section, const QByteArray& key);

/// `content` with the value of one key changed. A missing key goes behind the last one of its section, a
/// missing section to the end. Other lines stay as they are: comments, blank lines, what is no "key=value",
/// line ends.
QByteArray withIniValue(const QByteArray& content, const QByteArray& section, const QByteArray& key,
                        const QByteArray& value);
