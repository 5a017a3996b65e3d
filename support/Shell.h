// What the program hands to the desktop: addresses, and the About box with its links.
#pragma once

#include <QString>

/// Opens a document or an address with the desktop's program for it. Nobody looks at the result.
bool OpenDocument(const QString& target, const QString& parameters, const QString& folder);

/// Opens the home page of the language.
void Homepage_Click();

void about_Click();
