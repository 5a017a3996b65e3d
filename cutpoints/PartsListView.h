// Widget: the parts list. One row is selected or none; a press beside the rows changes nothing and is no
// click.
#pragma once

#include "cutpoints/PartRows.h"

#include <QTreeWidget>

#include <functional>

class PartsListView : public QTreeWidget {
    Q_OBJECT

public:
    enum Column { Part, Start, End, Duration, Title, SampleStart };

    PartsListView(QWidget* parent, const QString& name, QRectF placePx);

    std::function<void(int button)> onMouseDown;
    std::function<void()> onClick, onDblClick;
    QPoint lastPressGlobal() const { return lastPress_; }

    void clearRows();
    void addRow(const PartRow& row);
    int rowCount() const { return topLevelItemCount(); }

    int selectedRow() const;    ///< from 1; 0 when none is selected
    void selectRow(int row);    ///< and brings it into view
    QString cell(int row, Column column) const;
    void setCell(int row, Column column, const QString& text);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPoint lastPress_;
    bool isPressed_ = false;    // on a row, until the release
};
