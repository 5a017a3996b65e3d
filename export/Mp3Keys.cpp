#include "export/Mp3Keys.h"

namespace {

template <typename... Fs>
struct Overloaded : Fs... {
    using Fs::operator()...;
};
template <typename... Fs>
Overloaded(Fs...) -> Overloaded<Fs...>;

}

void setFromText(Mp3Format& format, const Mp3Property& property, const QString& text)
{
    std::visit(Overloaded{
                   [&](std::int16_t Mp3Format::*member) { format.*member = parseInteger(text); },
                   [&](std::int32_t Mp3Format::*member) { format.*member = parseLong(text); },
                   [&](bool Mp3Format::*member) { format.*member = parseBoolean(text); },
               },
               property);
}

QString textOf(const Mp3Format& format, const Mp3Property& property)
{
    return std::visit(Overloaded{
                          [&](bool Mp3Format::*member) { return booleanText(format.*member); },
                          [&](auto member) { return QString::number(format.*member); },
                      },
                      property);
}
