// The folder for work files: the user's own, and this running program's own.
#pragma once

#include <QString>

/// Path with a trailing separator. A second running program gets a folder of its own below it, so neither
/// touches the other's sound. Throws when no such folder can be made.
QString temporaryFolder();
