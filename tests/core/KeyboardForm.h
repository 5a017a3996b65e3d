// A form on which every key has something to do.
#pragma once

#include "support/FormFixture.h"
#include "support/Mouse.h"

/// A form with three parts, the middle one selected, so that every control is enabled.
inline CutterSelect& formWithPart(FormFixture& fixture)
{
    fixture.writeSetting("WMA", "WMASUPPORT", "True");
    auto& form = fixture.open(fakeSound(44100 * 10), {44100, 88200});
    fixture.pressBarOfRow(2);
    activate(form);
    journal().clear();
    return form;
}
