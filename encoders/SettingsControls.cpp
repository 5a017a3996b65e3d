#include "encoders/SettingsControls.h"

#include "core/Errors.h"
#include "core/toolkit/Look.h"
#include "core/toolkit/Wall.h"
#include "encoders/BitrateTable.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyleOptionSlider>
#include <QToolTip>

namespace {

const char* const formSheet = R"(
QTabBar::tab { padding: 5px 8px; }
QTabBar::tab:selected:focus { border-top: 2px solid #2F5FD0; padding-top: 4px; }
QSpinBox { padding: 1px 4px; }
QSpinBox::up-button, QSpinBox::down-button { subcontrol-origin: border; width: 20px; border: none; }
QSpinBox::up-button { subcontrol-position: top right; }
QSpinBox::down-button { subcontrol-position: bottom right; }
QSpinBox::up-arrow { image: url(:/quillon/icons/spin-up.svg); width: 9px; height: 9px; }
QSpinBox::down-arrow { image: url(:/quillon/icons/spin-down.svg); width: 9px; height: 9px; }
QSpinBox::up-arrow:disabled, QSpinBox::down-arrow:disabled, QComboBox::down-arrow:disabled { image: none; }
QGroupBox:disabled { color: #8A94AE; }
QGroupBox::title:disabled { color: #8A94AE; }
)";

}

Frame::Frame(QWidget* parent, const QString& name, QRectF placePx, const QString& title)
    : QGroupBox(title, parent)
{
    put(*this, name, placePx);
    setFont(look::font(12, QFont::DemiBold));
}

SettingsSlider::SettingsSlider(QWidget* parent, const QString& name, QRectF placePx, int last, int largeStep)
    : QSlider(Qt::Horizontal, parent)
{
    put(*this, name, placePx);
    setRange(0, last);
    setSingleStep(1);
    setPageStep(largeStep);
    setTickPosition(QSlider::TicksBelow);
    setTickInterval(1);
    QPalette faded = palette();
    faded.setColor(QPalette::Disabled, QPalette::Highlight, look::hairlineStrong);
    setPalette(faded);
    connect(this, &QSlider::valueChanged, this, guarded([this](int position) {
                if (onMove) onMove(position);
            }));
}

void SettingsSlider::set(int position)
{
    const int before = value();
    {
        const QSignalBlocker quiet(this);
        setValue(position);
    }
    if (value() != before && onMove) onMove(value());
}

void SettingsSlider::setPopUpText(const QString& text)
{
    setToolTip(text);
    if (!hasFocus() && !isSliderDown()) return;
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect knob = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    QToolTip::showText(mapToGlobal(QPoint(knob.center().x() - 14, knob.top() - 46)), text, this);
}

NumberBox::NumberBox(QWidget* parent, const QString& name, const QString& textName, QRectF placePx)
    : QSpinBox(parent)
{
    put(*this, name, placePx);
    lineEdit()->setObjectName(textName);
    setFont(look::font(12));
}

void NumberBox::setUp(int least, int most, int step, int start)
{
    setRange(least, most);
    setSingleStep(step);
    setValue(start);
}

EndLabel::EndLabel(QWidget* parent, const QString& name, QRectF placePx, const QString& text,
                   Qt::Alignment alignment)
    : Label(parent, name, placePx, alignment | Qt::AlignVCenter)
{
    setText(text);
    setFont(look::font(11));
    setForegroundRole(QPalette::PlaceholderText);
}

FieldLabel::FieldLabel(QWidget* parent, const QString& name, QRectF placePx, const QString& text)
    : Label(parent, name, placePx)
{
    setText(text);
    setFont(look::font(12));
}

void putButton(QAbstractButton& button, const QString& name, QRectF placePx, const QString& caption)
{
    put(button, name, placePx);
    button.setText(caption);
    button.setFont(look::font(12));
}

void putList(QComboBox& list, const QString& name, QRectF placePx, const QStringList& rows)
{
    put(list, name, placePx);
    list.setFont(look::font(12));
    list.addItems(rows);
    list.setMaxVisibleItems(12);
}

QStringList rateCaptions()
{
    QStringList captions;
    for (const SamplingRate& rate : samplingRates) captions << QString::fromLatin1(rate.caption);
    return captions;
}

QString currentBitrate(std::int32_t kbit)
{
    return QStringLiteral("Current bitrate: %1 kbit").arg(kbit);
}

void selectRow(QComboBox& list, std::int64_t row)
{
    if (row < -1 || row >= list.count())
        throw ConversionError(QStringLiteral("%1 has no row %2").arg(list.objectName()).arg(row));
    list.setCurrentIndex(static_cast<int>(row));
}

std::int32_t selectedRate(const QComboBox& list)
{
    const int row = list.currentIndex();
    if (row < 0) throw ConversionError(QStringLiteral("%1 has no row selected").arg(list.objectName()));
    return samplingRates.at(static_cast<std::size_t>(row)).hertz;
}

void setEnabledAll(std::initializer_list<QWidget*> controls, bool enabled)
{
    for (QWidget* control : controls) control->setEnabled(enabled);
}

void prepareSettingsForm(QDialog& form, const QString& name, const QString& title, QSize sizePx)
{
    form.setObjectName(name);
    form.setWindowTitle(title);
    form.setFixedSize(sizePx);
    form.setModal(true);
    form.setStyleSheet(QString::fromLatin1(formSheet));
}

void setTabOrderAll(const std::vector<QWidget*>& controls)
{
    for (std::size_t i = 1; i < controls.size(); ++i) QWidget::setTabOrder(controls[i - 1], controls[i]);
}
