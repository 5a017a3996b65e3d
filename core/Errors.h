// The three ways in which an operation can fail. All travel as exceptions; nothing returns a status.
#pragma once

#include <QString>

#include <stdexcept>

/// The engine could not do what was asked: open, create, decode, encode, tag, seek.
struct EngineError : std::runtime_error {
    explicit EngineError(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// A text is no number, a number does not fit its type, a division by zero, an index outside a table.
struct ConversionError : std::runtime_error {
    explicit ConversionError(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// The user left a file dialog without a choice, and the dialog was told to report that as an error.
struct DialogCancelled : std::runtime_error {
    DialogCancelled() : std::runtime_error("cancelled") {}
};

/// Runs one statement of a procedure that goes on whatever happens.
template <typename Statement>
void skipFaults(Statement&& statement)
{
    try {
        statement();
    } catch (const std::exception&) {
    }
}
