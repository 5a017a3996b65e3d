#include "cutpoints/PartsListView.h"

#include "core/Errors.h"
#include "core/toolkit/Look.h"
#include "core/toolkit/Pictures.h"
#include "core/toolkit/Widgets.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

PartsListView::PartsListView(QWidget* parent, const QString& name, QRectF placePx) : QTreeWidget(parent)
{
    put(*this, name, placePx);
    setColumnCount(6);
    setHeaderLabels({QStringLiteral("Part"), QStringLiteral("Start"), QStringLiteral("End"),
                     QStringLiteral("Duration"), QStringLiteral("Title"), QStringLiteral("Sample Start")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setIconSize(QSize(16, 16));
    setColumnHidden(SampleStart, true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    header()->setFont(look::font(11));
    header()->setFixedHeight(26);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(false);
    header()->setStretchLastSection(false);
    for (const auto& [column, width] : {std::pair{Part, 86}, {Start, 70}, {End, 70}, {Duration, 74}}) {
        header()->setSectionResizeMode(column, QHeaderView::Fixed);
        header()->resizeSection(column, width);
    }
    header()->setSectionResizeMode(Title, QHeaderView::Stretch);
}

void PartsListView::clearRows()
{
    clear();
}

void PartsListView::addRow(const PartRow& row)
{
    auto* item =
        new QTreeWidgetItem(this, {row.name, row.start, row.end, row.duration, row.title, row.sampleStart});
    item->setIcon(Part, icon(QStringLiteral("part")));
}

int PartsListView::selectedRow() const
{
    const auto selected = selectedItems();
    return selected.isEmpty() ? 0 : indexOfTopLevelItem(selected.first()) + 1;
}

void PartsListView::selectRow(int row)
{
    QTreeWidgetItem* item = topLevelItem(row - 1);
    if (!item) throw ConversionError(QStringLiteral("no row %1").arg(row));
    setCurrentItem(item);
    item->setSelected(true);
    scrollToItem(item);
}

QString PartsListView::cell(int row, Column column) const
{
    const QTreeWidgetItem* item = topLevelItem(row - 1);
    if (!item) throw ConversionError(QStringLiteral("no row %1").arg(row));
    return item->text(column);
}

void PartsListView::setCell(int row, Column column, const QString& text)
{
    QTreeWidgetItem* item = topLevelItem(row - 1);
    if (!item) throw ConversionError(QStringLiteral("no row %1").arg(row));
    item->setText(column, text);
}

void PartsListView::mousePressEvent(QMouseEvent* event)
{
    lastPress_ = event->globalPosition().toPoint();
    isPressed_ = itemAt(event->position().toPoint()) != nullptr;
    const bool isRight = event->button() == Qt::RightButton;
    if (onMouseDown) onMouseDown(isRight ? 2 : event->button() == Qt::MiddleButton ? 4 : 1);
    if (isPressed_) QTreeWidget::mousePressEvent(event);
}

// The toolkit calls a click what the left button does; here the right one clicks too.
void PartsListView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeWidget::mouseReleaseEvent(event);
    if (std::exchange(isPressed_, false) && onClick) onClick();
}

void PartsListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (itemAt(event->position().toPoint()) && onDblClick) onDblClick();
}

// Moving through the list by keys selects as a click does; Return plays as a double click does.
void PartsListView::keyPressEvent(QKeyEvent* event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && selectedRow() > 0) {
        if (onDblClick) onDblClick();
        return;
    }
    const int before = selectedRow();
    QTreeWidget::keyPressEvent(event);
    if (selectedRow() == before || selectedRow() == 0) return;
    if (onMouseDown) onMouseDown(1);
    if (onClick) onClick();
}
