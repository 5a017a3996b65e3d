// Ground for the tests of cutting: a sound that has a hundred samples to a twip, and a pointer that stands on
// any twip.
#pragma once

#include "support/FormFixture.h"
#include "support/Mouse.h"

inline constexpr std::int32_t songLength = 1042000;    ///< samples; the waveform is 10420 twips wide
inline constexpr std::int32_t samplesPerTwip = 100;

/// Heights on the waveform, twips.
inline constexpr double inRuler = 240, inWave = 1500, inBar = 2805;

inline const FakeSound& song()
{
    static const FakeSound sound = fakeSound(songLength);
    return sound;
}

/// Logical pixels of a place in twips.
inline QPointF pixels(double x, double y)
{
    return {x / twipsPerPixel, y / twipsPerPixel};
}

/// The mouse of support/Mouse.h, at places in twips.
inline void mouse(QWidget& on, QEvent::Type type, double x, double y, Qt::MouseButton button = Qt::NoButton,
                  Qt::MouseButtons held = Qt::NoButton)
{
    sendMouse(on, type, pixels(x, y), button, held);
}

inline void pressAt(QWidget& on, double x, double y, Qt::MouseButton button = Qt::LeftButton)
{
    pressAt(on, pixels(x, y), button);
}

inline void moveTo(QWidget& on, double x, double y, Qt::MouseButtons held = Qt::NoButton)
{
    moveTo(on, pixels(x, y), held);
}

inline void releaseAt(QWidget& on, double x, double y, Qt::MouseButton button = Qt::LeftButton)
{
    releaseAt(on, pixels(x, y), button);
}

inline void clickAt(QWidget& on, double x, double y, Qt::MouseButton button = Qt::LeftButton)
{
    pressAt(on, x, y, button);
    releaseAt(on, x, y, button);
}

inline void doubleClickAt(QWidget& on, double x, double y)
{
    clickAt(on, x, y);
    mouse(on, QEvent::MouseButtonDblClick, x, y, Qt::LeftButton, Qt::LeftButton);
    releaseAt(on, x, y);
}

inline constexpr double insideHandle = 20;    ///< twips from the corner of a handle

/// Presses on a handle of the waveform, `insideHandle` from its corner.
inline void pressHandle(CutterSelect& form, int index, Qt::MouseButton button = Qt::LeftButton)
{
    const auto& handle = form.Bop(index);
    pressAt(form.Picture1, handle.Left() + insideHandle, handle.Top() + insideHandle, button);
}

/// A form with the song open, cut at these samples.
struct Cutting {
    FormFixture fixture;
    CutterSelect& form;

    explicit Cutting(std::initializer_list<std::int32_t> cuts = {}) : form(fixture.open(song(), cuts)) {}

    /// Cuts at samples that stand on whole twips.
    void cutEvenly(int count, std::int32_t step)
    {
        for (int i = 1; i <= count; ++i) {
            form.Line2.setX(static_cast<Twips>(i * step / samplesPerTwip));
            form.SetCutPoint.trigger();
        }
        form.DrawRulerAndMarkers();
        journal().clear();
    }

    /// Types a title for the part of this list row, by the field's own keys.
    void title(int row, const QString& text)
    {
        fixture.pressBarOfRow(row);
        form.TextTitle.clear();
        QTest::keyClicks(&form.TextTitle, text);
    }

    std::vector<std::int32_t> cuts() const
    {
        return {CutPoints.begin() + 1, CutPoints.begin() + 1 + CutCount};
    }

    QStringList column(PartsListView::Column column) const
    {
        QStringList cells;
        for (int row = 1; row <= form.ListView1.rowCount(); ++row) cells << form.ListView1.cell(row, column);
        return cells;
    }
    QStringList titles() const { return column(PartsListView::Title); }

    /// What the handles say of themselves: the sample of each.
    QStringList tags() const
    {
        QStringList all;
        for (int i = 1; i <= form.Bop.UBound(); ++i) all << form.Bop(i).Tag;
        return all;
    }

    bool isDetailPanelCleared() const
    {
        return form.Label11.text().isEmpty() && form.TextTitle.text().isEmpty() &&
               !form.TextTitle.isEnabled() && form.Text1.text() == QLatin1String("00:00.00") &&
               form.Text2.text() == QLatin1String("00:00.00") &&
               form.Label16.text() == QLatin1String("00:00.00") && !form.PlaythisPart.isEnabled();
    }
};

using Samples = std::vector<std::int32_t>;
