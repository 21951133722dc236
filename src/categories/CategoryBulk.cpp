// SPDX-License-Identifier: GPL-3.0-or-later
#include "categories/CategoryBulk.h"

#include "desktop/Guard.h"
#include "desktop/PreviewQuestion.h"
#include "platform/store/RowKeys.h"
#include "songlist/DisplayedSet.h"
#include "songlist/SongPreview.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Rows of one statement: what came before a failing one stays. */
constexpr qsizetype Portion = 50'000;

constexpr auto ShowSelectedAdvice =
    ", press Cancel, exit this screen, and click the \"Show Selected Records Only\" button on the previous "
    "screen or choose that option from the Edit menu.\r\n\r\n"_L1;

/** @p low and @p high are the lowest and the highest key of a portion of the displayed songs. */
QString insertion(qint64 number, qint64 low, qint64 high)
{
    return u"Insert Into tblCategoryID (ID, CategoryNumber) Select RowKey, %1 From tmpRowKeys Where RowKey "
           "Between %2 And %3 And RowKey Not In (Select ID From tblCategoryID Where CategoryNumber = %1 And "
           "ID Between %2 And %3)"_s.arg(number)
               .arg(low)
               .arg(high);
}

QString deletion(qint64 number, qint64 low, qint64 high)
{
    return u"Delete From tblCategoryID Where CategoryNumber = %1 And ID Between %2 And %3 And ID In (Select "
           "RowKey From tmpRowKeys)"_s.arg(number)
               .arg(low)
               .arg(high);
}

/** How many displayed songs are in the category. */
QString countInside(qint64 number)
{
    return u"Select Count(*) As NumRecs From tmpRowKeys Where RowKey In (Select ID From tblCategoryID Where "
           "CategoryNumber = %1)"_s.arg(number);
}

} // namespace

struct CategoryBulk::Words
{
    QString command;
    QString assigned;
    QString selected;
    QString all;
    QString title;
    QString done;
    QString others;
};

const CategoryBulk::Words &CategoryBulk::wordsOf(Direction direction)
{
    static const Words in{
        .command = u"Assign Many Records to Category"_s,
        .assigned = u"All displayed Songs will be assigned to this Category, not just the "_s,
        .selected = u" you have selected.  To assign just the selected records"_s,
        .all = u"Click on the OK button to assign ALL displayed Songs to this Category, or Cancel if this is "
               u"not "
               "what you want."_s,
        .title = u"Assignment Statistics"_s,
        .done = u"Number of Songs assigned to Category "_s,
        .others = u"Number of Songs already assigned to this Category ("_s,
    };
    static const Words out{
        .command = u"Remove Many Records from Category"_s,
        .assigned = u"All displayed Songs will be removed from this Category, not just the "_s,
        .selected = u" you have selected.  To un-assign just the selected Songs"_s,
        .all = u"Click on the OK button to remove ALL displayed Songs from this Category, or Cancel if this "
               u"is not "
               "what you want."_s,
        .title = u"Un-Assignment Statistics"_s,
        .done = u"Number of Songs removed from Category "_s,
        .others = u"Number of Songs not found assigned to this Category ("_s,
    };
    return direction == Direction::In ? in : out;
}

void CategoryBulk::assignAll(const Category *category)
{
    run(Direction::In, category);
}

void CategoryBulk::removeAll(const Category *category)
{
    run(Direction::Out, category);
}

void CategoryBulk::run(Direction direction, const Category *category)
{
    const Words &words = wordsOf(direction);
    const auto handler = [&] {
        if (category == nullptr) {
            m_parts.services.desktop.MessageBox(warning(words), u"Warning"_s, Icon::Exclamation,
                                                Buttons::OkCancel, Answer::Cancel);
            return;
        }
        try {
            const auto asked = confirmed(direction, *category);
            if (!asked)
                return;
            if (const auto changed = change(direction, category->CategoryNumber, asked->songs))
                tellStatistics(words, category->CategoryDesc, asked->count, *changed);
        } catch (const dao::DaoError &error) {
            // A statement that the store can't read ends the command without a word, and that is meant.
            if (error.number != dao::SyntaxError)
                throw;
        }
    };
    guarded(m_parts.services.desktop, words.title, handler, ErrorBox{{}, Icon::None});
}

std::optional<CategoryBulk::Asked> CategoryBulk::confirmed(Direction direction, const Category &category)
{
    std::unique_ptr<SongPreview> preview;
    if (!isConfirmed(
            m_parts.services.desktop,
            {warning(wordsOf(direction)), u"Warning"_s, Icon::Exclamation, Buttons::OkCancel, Answer::Cancel},
            [&]() -> Preview & {
                preview = previewOf(direction, category);
                return *preview;
            }))
        return std::nullopt;
    if (preview)
        return Asked{preview->tickedSongs(), preview->ticked()};
    dao::Recordset &displayed = m_parts.set.Data1().Recordset();
    return Asked{dao::keysOf(displayed), displayed.RecordCount()};
}

// Songs that are where they are to come show nothing.
std::unique_ptr<SongPreview> CategoryBulk::previewOf(Direction direction, const Category &category)
{
    const SongPreview::Ground ground{*m_parts.services.catalogue.CatalogueDb, m_parts.set.Data1()};
    const auto rows = ground.database.OpenRecordset(
        u"Select ID From tblCategoryID Where CategoryNumber = %1"_s.arg(category.CategoryNumber),
        dao::RecordsetType::Snapshot);
    QSet<qint64> inside;
    rows->forEachRow({0}, [&](qint64 /*position*/, std::span<const QByteArrayView> texts) {
        inside.insert(texts[0].toLongLong());
    });
    const bool in = direction == Direction::In;
    std::vector<PlannedChange> plans = plansOfDisplayed(ground);
    std::erase_if(plans, [&](const PlannedChange &plan) { return inside.contains(plan.song) == in; });
    for (PlannedChange &plan : plans) {
        plan.field = u"Category"_s;
        (in ? plan.after : plan.before) = category.CategoryDesc;
    }
    const QString sentence = (in ? u"Assign to category \"%1\": %2"_s : u"Remove from category \"%1\": %2"_s)
                                 .arg(category.CategoryDesc, countedSongs(static_cast<qint64>(plans.size())));
    return std::make_unique<SongPreview>(ground, sentence, std::move(plans));
}

QString CategoryBulk::warning(const Words &words) const
{
    const int selected = m_parts.set.SelectedCount();
    if (selected < 1 || m_parts.set.Data1().RecordSource().contains("Selected"_L1))
        return words.all;
    return words.assigned + QString::number(selected) + words.selected + ShowSelectedAdvice + words.all;
}

std::optional<qint64> CategoryBulk::change(Direction direction, qint64 number,
                                           const std::vector<qint64> &songs)
{
    const Hourglass hourglass(m_parts.services.desktop);
    m_store.requireCategory(number);
    dao::Database &database = *m_parts.services.catalogue.CatalogueDb;
    const dao::RowKeys displayed(database, songs);
    const qint64 inside = database.OpenRecordset(countInside(number))->value(u"NumRecs"_s).toLongLong();
    if (inside == (direction == Direction::In ? displayed.count() : 0))
        return 0;
    if (!m_parts.beforeBulk(wordsOf(direction).command))
        return {};
    dao::Transaction transaction(database.workspace());
    qint64 changed = 0;
    try {
        for (const std::pair<qint64, qint64> &keys : displayed.portions(Portion)) {
            const auto statement = direction == Direction::In ? &insertion : &deletion;
            database.Execute(statement(number, keys.first, keys.second));
            changed += database.RecordsAffected();
        }
    } catch (const dao::DaoError &) {
        transaction.commit();
        throw;
    }
    transaction.commit();
    return changed;
}

// A song that is displayed twice counts twice, the second time among the others.
void CategoryBulk::tellStatistics(const Words &words, const QString &name, qint64 displayed, qint64 changed)
{
    QString text = words.done + u'"' + name + u"\" ("_s + QString::number(changed) + u")."_s;
    if (const qint64 others = displayed - changed; others != 0)
        text += u'\n' + words.others + QString::number(others) + u")."_s;
    m_parts.services.desktop.MessageBox(text, words.title, Icon::Information);
}

} // namespace quaverly
