// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

QString randomText(QRandomGenerator &random, qsizetype longest)
{
    static constexpr char32_t alphabet[] = {
        U'a',      U'E',      U'e',      U'\u00e9', U'\u0301',     U's',      U'S', U'\u00df', U'\u1e9e',
        U'-',      U' ',      U'\'',     U'l',      U'\u00b7',     U'\u0130', U'i', U'\u00ad', U'\u6843',
        U'\u0e40', U'\u0e01', U'\u03c3', U'\u03c2', U'\U0001f600', U'\ufb01', U'7'};
    QString text;
    for (qsizetype left = random.bounded(longest) + 1; left > 0; --left)
        text += QString::fromUcs4(&alphabet[random.bounded(quint32(std::size(alphabet)))], 1);
    return text;
}

} // namespace

TEST_F(SongCatalogue, ExpressionsHaveTheirValues)
{
    for (const QStringList &expression : table(u"expressions.tsv"_s, 2)) {
        SCOPED_TRACE(expression[0].toStdString());
        QString value;
        const int error = errorOf([&] {
            value = keys(u"Select "_s + expression[0] + u" As v From tblContacts Where RecordID = 1"_s);
        });
        EXPECT_EQ(error, 0);
        EXPECT_EQ(value, expression[1]);
    }
}

TEST_F(SongCatalogue, AConditionMeansTheSameInAStatementAndInASearch)
{
    const auto all = open(u"Select * From tblContacts Order By RecordID"_s);
    for (const QStringList &condition : table(u"conditions.tsv"_s, 2)) {
        const QString &text = condition[0];
        SCOPED_TRACE(text.toStdString());
        QStringList found;
        try {
            for (all->FindFirst(text); !all->NoMatch() && found.size() < 12; all->FindNext(text))
                found.append(all->text(u"RecordID"_s));
            EXPECT_EQ(found.join(u'|'), condition[1]);
            EXPECT_EQ(keys(u"Select RecordID From tblContacts Where "_s + text), condition[1]);
        } catch (const dao::DaoError &error) {
            ADD_FAILURE() << error.number << ' ' << error.what();
        }
    }
}

// A pattern with a literal front is looked up as a range; behind an expression it can't be.
TEST_F(SongCatalogue, ALookedUpPatternFindsWhatTheSameTestFindsRowByRow)
{
    QRandomGenerator random(20240229);
    const auto rows = open(u"tblPlayListDetail"_s);
    db().workspace().BeginTrans();
    for (int row = 0; row < 400; ++row) {
        rows->AddNew();
        rows->setValue(u"SongTitle"_s, randomText(random, 5));
        rows->Update();
    }
    db().workspace().CommitTrans();
    int hits = 0;
    for (int round = 0; round < 400; ++round) {
        const QString pattern = quotedSql(randomText(random, 3) + u'*');
        const QString sql = u"Select SongTitle From tblPlayListDetail Where %1 Like %2 Order By SongTitle"_s;
        const QString looked = keys(sql.arg(u"SongTitle"_s, pattern));
        EXPECT_EQ(looked, keys(sql.arg(u"(SongTitle & '')"_s, pattern))) << pattern.toStdString();
        hits += looked.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(hits, 100);
}

} // namespace quaverly::test
