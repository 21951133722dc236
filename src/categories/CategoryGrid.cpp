// SPDX-License-Identifier: GPL-3.0-or-later
#include "categories/CategoryGrid.h"

#include "desktop/ScreenLook.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Of the column with the number, in average characters; its heading is folded. */
constexpr int NumberCharacters = 20;
constexpr double HeadingLines = 2.5;
constexpr QSize SmallestCharacters(30, 8);

/** Not one that a shortcut is made with. */
bool isLetter(const QKeyEvent &key)
{
    const QString typed = key.text();
    if (typed.size() != 1 || (key.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier)))
        return false;
    const char16_t c = typed.front().unicode() | 0x20;
    return c >= u'a' && c <= u'z';
}

} // namespace

class CategoryModel final : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    QList<CategoryGrid::Head> heads;
    QList<Category> categories;

    void show(const QList<Category> &others)
    {
        beginResetModel();
        categories = others;
        endResetModel();
    }
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(categories.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(heads.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override
    {
        // Copying with no row selected asks for a row that isn't there.
        if (!index.isValid())
            return {};
        const Category &category = categories[index.row()];
        const bool number = heads[index.column()].shows == CategoryGrid::Shows::Number;
        if (role == Qt::ToolTipRole && !number)
            return QString(u"<p>"_s + category.CategoryDesc.toHtmlEscaped() + u"</p>"_s);
        if (role == Qt::TextAlignmentRole && number)
            return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
        if (role != Qt::DisplayRole)
            return {};
        return number ? QVariant(category.CategoryNumber) : QVariant(category.CategoryDesc);
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return {};
        return heads[section].caption;
    }
};

CategoryGrid::CategoryGrid(QWidget *parent) : QTableView(parent), m_model(new CategoryModel(this))
{
    setModel(m_model);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(
        Qt::Alignment::fromInt(Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap));
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setMinimumSize(SmallestCharacters.width() * fontMetrics().averageCharWidth(),
                   SmallestCharacters.height() * fontMetrics().lineSpacing());
}

void CategoryGrid::setHeads(const QList<Head> &heads)
{
    m_model->heads = heads;
    m_model->show({});
    for (int column = 0; column < heads.size(); ++column) {
        const bool number = heads[column].shows == Shows::Number;
        horizontalHeader()->setSectionResizeMode(column, number ? QHeaderView::Fixed : QHeaderView::Stretch);
        if (!number)
            continue;
        setColumnWidth(column, NumberCharacters * fontMetrics().averageCharWidth());
        horizontalHeader()->setMinimumHeight(qRound(HeadingLines * fontMetrics().lineSpacing()));
    }
}

void CategoryGrid::setCategories(const QList<Category> &categories)
{
    const qint64 number = current() != nullptr ? current()->CategoryNumber : 0;
    m_model->show(categories);
    makeRowCurrent(0);
    makeCurrent(number);
}

void CategoryGrid::sizeForFingers()
{
    verticalHeader()->setDefaultSectionSize(FingerHeight);
}

const Category *CategoryGrid::current() const
{
    const int row = currentIndex().row();
    return row < 0 ? nullptr : &m_model->categories[row];
}

const QList<Category> &CategoryGrid::categories() const
{
    return m_model->categories;
}

void CategoryGrid::makeCurrent(qint64 number)
{
    const auto found = std::ranges::find(m_model->categories, number, &Category::CategoryNumber);
    if (found != m_model->categories.end())
        makeRowCurrent(static_cast<int>(found - m_model->categories.begin()));
}

void CategoryGrid::makeRowCurrent(int row)
{
    if (row >= 0 && row < m_model->rowCount())
        setCurrentIndex(m_model->index(row, 0));
}

void CategoryGrid::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT chosen();
    else if (isLetter(*event))
        Q_EMIT letterTyped(event->text().front());
    else
        QTableView::keyPressEvent(event);
}

void CategoryGrid::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (indexAt(event->pos()).isValid())
        Q_EMIT chosen();
}

} // namespace quaverly
