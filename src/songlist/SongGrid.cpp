// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/SongGrid.h"

#include "catalogue/SongFields.h"
#include "platform/text/Twips.h"
#include "songlist/SongCellDelegate.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** In pixels: wide enough to be caught with the pointer again. */
constexpr int NarrowestColumn = 12;

/** Came after the first layout: not shown unless the user wants it. */
bool canBeHidden(const QString &field)
{
    const SongField *known = songField(field);
    return known != nullptr && known->gridColumn >= FirstColumns;
}

} // namespace

SongGrid::SongGrid(QWidget *parent) : QTableView(parent)
{
    setItemDelegate(new SongCellDelegate(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    // Rows of one height need no memory and no measuring.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(false);
    horizontalHeader()->setTextElideMode(Qt::ElideRight);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setMinimumSectionSize(NarrowestColumn);
    horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(horizontalHeader(), &QHeaderView::customContextMenuRequested, this,
            &SongGrid::header_ContextMenu);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &SongGrid::HeadClick);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
        if (!m_resizing)
            Q_EMIT ColResize();
    });
    tintRows();
}

void SongGrid::setData(DataControl &control)
{
    m_data = &control;
    m_model = new SongGridModel(control, this);
    m_model->setFinishTyping([this] { return finishEditing(); });
    setModel(m_model);
    connect(m_model, &QAbstractItemModel::modelReset, this, &SongGrid::model_Reset);
    connect(m_model, &SongGridModel::currentRowChanged, this, &SongGrid::model_CurrentRowChanged);
    model_Reset();
}

void SongGrid::unbind()
{
    m_data = nullptr;
    setModel(nullptr);
    delete std::exchange(m_model, nullptr);
}

void SongGrid::setRowHeight(double twips)
{
    m_rowTwips = twips;
    const int pixels = qRound(twips / TwipsPerPixel);
    verticalHeader()->setDefaultSectionSize(std::max(pixels, fontMetrics().height() + 2));
}

void SongGrid::setDesignWidths()
{
    const QScopedValueRollback resizing(m_resizing, true);
    const int character = qRound(characterTwips() / TwipsPerPixel);
    for (int i = 0; i < m_model->columnCount(); ++i) {
        const SongField *field = songField(m_model->column(i).dataField);
        const int heading = fontMetrics().horizontalAdvance(m_model->column(i).caption) + 3 * character;
        const int wanted = field->characters * character;
        setColumnWidth(i, i == 0 ? wanted + character : std::max(heading, wanted));
        setColumnHidden(i, canBeHidden(field->name));
    }
}

/** The headings' own menu: the columns that can be hidden. */
void SongGrid::header_ContextMenu(QPoint place)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int i = 0; i < m_model->columnCount(); ++i) {
        if (!canBeHidden(m_model->column(i).dataField))
            continue;
        QAction *action = menu->addAction(m_model->column(i).caption);
        action->setObjectName(u"show"_s + m_model->column(i).dataField);
        action->setCheckable(true);
        action->setChecked(!isColumnHidden(i));
        connect(action, &QAction::toggled, this, [this, i](bool shown) {
            setColumnHidden(i, !shown);
            Q_EMIT ColResize();
        });
    }
    menu->popup(horizontalHeader()->mapToGlobal(place));
}

int SongGrid::Row() const
{
    return currentIndex().isValid() ? currentIndex().row() - verticalScrollBar()->value() : -1;
}

int SongGrid::VisibleRows() const
{
    return viewport()->height() / std::max(1, verticalHeader()->defaultSectionSize());
}

void SongGrid::Scroll(int columns, int rows)
{
    verticalScrollBar()->setValue(verticalScrollBar()->value() + rows);
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() +
                                    columns * horizontalScrollBar()->singleStep());
}

void SongGrid::setAllowUpdate(bool allow)
{
    m_model->setEditable(allow);
    setEditTriggers(allow ? AnyKeyPressed | EditKeyPressed : EditTriggers(NoEditTriggers));
    viewport()->update();
}

bool SongGrid::AllowUpdate() const
{
    return m_model->isEditable();
}

bool SongGrid::finishEditing()
{
    QWidget *editor = CellEditing() ? indexWidget(currentIndex()) : nullptr;
    if (editor == nullptr || m_committing)
        return true;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    return !m_refused;
}

void SongGrid::refuseTyped()
{
    m_refused = typedText();
}

QString SongGrid::typedText() const
{
    const auto *line = qobject_cast<const QLineEdit *>(indexWidget(currentIndex()));
    return line != nullptr ? line->text() : QString();
}

// The box about a refusal takes the focus, and the cell would be committed and closed behind it.
void SongGrid::commitData(QWidget *editor)
{
    if (m_committing)
        return;
    const QScopedValueRollback committing(m_committing, true);
    m_refused.reset();
    QTableView::commitData(editor);
}

void SongGrid::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    if (m_committing)
        return;
    if (m_refused && hint != QAbstractItemDelegate::RevertModelCache) {
        editor->setFocus();
        return;
    }
    m_refused.reset();
    QTableView::closeEditor(editor, hint);
}

/** What is typed was refused before, when the cell lost the focus to the same act, or is so now. */
bool SongGrid::holdsRefusedText()
{
    return CellEditing() && (m_refused == typedText() || !finishEditing());
}

// Digits are wider than the average in some fonts, and years stand in digits.
double SongGrid::characterTwips() const
{
    const QFontMetrics metrics = fontMetrics();
    return std::max(metrics.averageCharWidth(), metrics.horizontalAdvance(u'0')) * TwipsPerPixel;
}

// In another font the columns keep showing as much text.
void SongGrid::followFont()
{
    const double before = std::exchange(m_characterTwips, characterTwips());
    horizontalHeader()->setFont(font());
    if (m_model == nullptr || before <= 0)
        return;
    for (int i = 0; before != m_characterTwips && i < m_model->columnCount(); ++i)
        setColumnTwips(i, columnTwips(i) * m_characterTwips / before);
    setRowHeight(m_rowTwips);
}

double SongGrid::columnTwips(int column) const
{
    // A hidden column's width is 0.
    return static_cast<double>(columnWidth(column)) * TwipsPerPixel;
}

void SongGrid::setColumnTwips(int column, double twips)
{
    const QScopedValueRollback resizing(m_resizing, true);
    const bool hidden = twips <= 0 && canBeHidden(m_model->column(column).dataField);
    setColumnHidden(column, hidden);
    if (!hidden)
        setColumnWidth(column, std::max(NarrowestColumn, qRound(twips / TwipsPerPixel)));
}

QPoint SongGrid::currentRowPlace() const
{
    const QRect cell = visualRect(currentIndex());
    return viewport()->mapToGlobal(QPoint(std::max(0, cell.left()), cell.bottom()));
}

void SongGrid::model_Reset()
{
    followRecordset();
    placeEmptyState();
    tellRowColChange(-1);
}

void SongGrid::model_CurrentRowChanged()
{
    followRecordset();
    tellRowColChange(m_lastCol);
}

void SongGrid::tellRowColChange(int lastCol)
{
    if (m_pressing)
        m_heldLastCol = lastCol;
    else
        Q_EMIT RowColChange(lastCol);
}

void SongGrid::followRecordset()
{
    if (m_following || m_data == nullptr || !m_data->hasRows())
        return;
    const QScopedValueRollback following(m_following, true);
    const auto position = static_cast<int>(m_data->Recordset().AbsolutePosition());
    if (position < 0)
        return;
    const QModelIndex wanted = m_model->index(position, m_col);
    const int left = horizontalScrollBar()->value();
    const int line = position - verticalScrollBar()->value();
    const bool inView = line >= 0 && line < VisibleRows();
    setCurrentIndex(wanted);
    // A row from elsewhere comes to the top, so that what follows it is in view.
    scrollTo(wanted, inView ? EnsureVisible : PositionAtTop);
    horizontalScrollBar()->setValue(left);
    viewport()->update();
}

void SongGrid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    if (current.isValid())
        m_col = current.column();
    if (m_following || m_data == nullptr || !current.isValid())
        return;
    if (current.row() == previous.row()) {
        tellRowColChange(previous.column());
        return;
    }
    const QScopedValueRollback following(m_following, true);
    const QScopedValueRollback lastCol(m_lastCol, previous.column());
    m_data->Recordset().setAbsolutePosition(current.row());
    m_data->notifyRowChanged();
}

void SongGrid::mousePressEvent(QMouseEvent *event)
{
    if (holdsRefusedText())
        return;
    const bool right = event->button() == Qt::RightButton;
    m_heldLastCol.reset();
    {
        const QScopedValueRollback pressing(m_pressing, true);
        if (right && indexAt(event->position().toPoint()).isValid())
            setCurrentIndex(m_model->index(indexAt(event->position().toPoint()).row(), std::max(1, Col())));
        else
            QTableView::mousePressEvent(event);
    }
    if (right)
        Q_EMIT RightButtonDown(event->globalPosition().toPoint());
    if (currentIndex().isValid() && indexAt(event->position().toPoint()).isValid())
        Q_EMIT Click();
    if (m_heldLastCol)
        Q_EMIT RowColChange(*std::exchange(m_heldLastCol, std::nullopt));
}

void SongGrid::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid())
        Q_EMIT DblClick();
}

// The right button's own event comes before; only the menu key is left to answer.
void SongGrid::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard && currentIndex().isValid())
        Q_EMIT MenuKey(currentRowPlace());
    event->accept();
}

void SongGrid::keyPressEvent(QKeyEvent *event)
{
    static constexpr Qt::Key toOtherRows[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
    if (std::ranges::count(toOtherRows, event->key()) > 0 && CellEditing() && !finishEditing())
        return;
    event->ignore();
    Q_EMIT KeyDown(event);
    if (!event->isAccepted())
        QTableView::keyPressEvent(event);
}

void SongGrid::setEmptyState(QWidget *widget)
{
    m_emptyState = widget;
    m_emptyState->setParent(viewport());
    placeEmptyState();
}

void SongGrid::placeEmptyState()
{
    if (m_emptyState == nullptr)
        return;
    m_emptyState->adjustSize();
    const QSize size = m_emptyState->sizeHint().boundedTo(viewport()->size());
    m_emptyState->setGeometry(QRect(
        QPoint((viewport()->width() - size.width()) / 2, (viewport()->height() - size.height()) / 2), size));
    m_emptyState->setVisible(m_data == nullptr || !m_data->hasRows());
}

void SongGrid::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    placeEmptyState();
}

void SongGrid::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        followFont();
    if (event->type() == QEvent::PaletteChange && !m_tinting)
        tintRows();
}

// Every other row 3 % nearer to the text's colour, and the highlight paler without the focus.
void SongGrid::tintRows()
{
    const QScopedValueRollback tinting(m_tinting, true);
    QPalette colours = palette();
    const QColor base = colours.color(QPalette::Active, QPalette::Base);
    const QColor text = colours.color(QPalette::Active, QPalette::Text);
    const auto mixed = [](const QColor &a, const QColor &b, double share) {
        return QColor::fromRgbF(static_cast<float>(a.redF() * (1 - share) + b.redF() * share),
                                static_cast<float>(a.greenF() * (1 - share) + b.greenF() * share),
                                static_cast<float>(a.blueF() * (1 - share) + b.blueF() * share));
    };
    colours.setColor(QPalette::AlternateBase, mixed(base, text, 0.03));
    const QColor highlight = colours.color(QPalette::Active, QPalette::Highlight);
    colours.setColor(QPalette::Inactive, QPalette::Highlight, mixed(highlight, base, 0.65));
    colours.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
    setPalette(colours);
}

} // namespace quaverly
