// The volume: a knob on its track, and the mute button, whose picture is its only state.
#include "core/CutterSelect.h"

namespace {

const QString soundPicture = QStringLiteral("volume");
const QString mutedPicture = QStringLiteral("mute");

double volumeAt(const GraphicImage& knob, const Surface& track, bool isAtTop)
{
    return isAtTop ? fullVolume : knob.Left() * (static_cast<double>(fullVolume) / track.Width());
}

}

void CutterSelect::Image14_MouseDown(Twips X)
{
    VolumeDrag = true;
    DragStartX = toLong(X);
}

// The flag stands for the knob at the top of its range, since its left edge can never reach the full width.
void CutterSelect::Image14_MouseMove(Twips X)
{
    VolumeMoved = false;
    if (!VolumeDrag) return;
    const Twips n = X - static_cast<Twips>(DragStartX) + Image14.Left();
    if (n <= 0) {
        Image14.setLeft(0);
    } else if (n + Image14.Width() <= Picture5.Width()) {
        Image14.setLeft(n);
    } else {
        Image14.setLeft(Picture5.Width() - Image14.Width());
        VolumeMoved = true;
    }
}

// Kept: while it is mute the volume is set all the same, and the picture still says mute.
void CutterSelect::Image14_MouseUp()
{
    AudioPlayer->SetVolume(toLong(volumeAt(Image14, Picture5, VolumeMoved)));
    VolumeDrag = false;
}

// Kept: the knob jumps and the volume doesn't change until the next release on the knob.
void CutterSelect::Picture5_MouseUp(Twips X)
{
    const Twips farEnd = Picture5.Width() - Image14.Width();
    Image14.setLeft(X + Image14.Width() <= Picture5.Width() ? X : farEnd);
}

// A key drags the knob by a twentieth of its track and lets it go.
void CutterSelect::Picture5_KeyDown(int key)
{
    if (VolumeDrag) return;
    const Twips step = Picture5.Width() / 20;
    Image14_MouseDown(0);
    Image14_MouseMove(key == Qt::Key_Left ? -step : step);
    Image14_MouseUp();
}

void CutterSelect::Image15_Click()
{
    if (Image15.picture() == mutedPicture) {
        Image15.setPicture(soundPicture);
        AudioPlayer->SetVolume(toLong(volumeAt(Image14, Picture5, VolumeMoved)));
    } else {
        Image15.setPicture(mutedPicture);
        AudioPlayer->SetVolume(0);
    }
}
