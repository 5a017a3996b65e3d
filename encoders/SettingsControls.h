// What the settings dialogs are made of: frames, sliders that name their value, number boxes, and the setting
// of controls by the program.
#pragma once

#include "core/toolkit/Widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>

#include <initializer_list>

/// A titled white box.
class Frame : public QGroupBox {
    Q_OBJECT

public:
    Frame(QWidget* parent, const QString& name, QRectF placePx, const QString& title);
};

/// A slider from 0 up.
class SettingsSlider : public QSlider {
    Q_OBJECT

public:
    SettingsSlider(QWidget* parent, const QString& name, QRectF placePx, int last, int largeStep);

    std::function<void(int position)> onMove;    ///< the rule that a move runs, whoever moves it
    void set(int position);                      ///< a move by the program; clipped to the range
    void setPopUpText(const QString& text);      ///< shown above the knob while it moves
};

/// An up-down with its text box, which is named apart.
class NumberBox : public QSpinBox {
    Q_OBJECT

public:
    NumberBox(QWidget* parent, const QString& name, const QString& textName, QRectF placePx);

    void setUp(int least, int most, int step, int start);
    QLineEdit& text() { return *lineEdit(); }
};

/// A caption in small muted letters, at an end of a slider.
class EndLabel : public Label {
public:
    EndLabel(QWidget* parent, const QString& name, QRectF placePx, const QString& text,
             Qt::Alignment alignment);
};

/// A caption to the left of a field.
class FieldLabel : public Label {
public:
    FieldLabel(QWidget* parent, const QString& name, QRectF placePx, const QString& text);
};

/// Places a button of any kind and gives it its caption.
void putButton(QAbstractButton& button, const QString& name, QRectF placePx, const QString& caption);

/// Places a list and fills it.
void putList(QComboBox& list, const QString& name, QRectF placePx, const QStringList& rows);

/// The captions of the sampling rates, row by row.
QStringList rateCaptions();

/// Selects a row; -1 selects none. Throws ConversionError for a row that the list doesn't have.
void selectRow(QComboBox& list, std::int64_t row);

/// What stands above a slider of bitrates.
QString currentBitrate(std::int32_t kbit);

/// Rate in Hz of the selected row. Throws ConversionError when none is selected.
std::int32_t selectedRate(const QComboBox& list);

void setEnabledAll(std::initializer_list<QWidget*> controls, bool enabled);

/// Size, title and look that the settings dialogs share.
void prepareSettingsForm(QDialog& form, const QString& name, const QString& title, QSize sizePx);

/// Lets the Tab key visit the controls in this order.
void setTabOrderAll(const std::vector<QWidget*>& controls);
