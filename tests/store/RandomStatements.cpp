// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/RandomStatements.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

/** A form with its numbered places filled. */
QString filled(const char *form, const QList<Twin> &parts, QString Twin::*side)
{
    QString made;
    for (const char *at = form; *at != '\0'; ++at) {
        if (*at == '%' && at[1] != ' ')
            made += parts[*++at - '1'].*side;
        else
            made += QLatin1Char(*at);
    }
    return made;
}

Twin filled(const char *dialect, const char *sqlite, const QList<Twin> &parts)
{
    return {filled(dialect, parts, &Twin::dialect), filled(sqlite, parts, &Twin::sqlite)};
}

Twin filled(const char *both, const QList<Twin> &parts)
{
    return filled(both, both, parts);
}

Twin same(const QString &text)
{
    return {text, text};
}

} // namespace

QString RandomStatements::oneOf(std::initializer_list<const char *> words)
{
    return QString::fromLatin1(*(words.begin() + below(static_cast<int>(words.size()))));
}

Twin RandomStatements::literal()
{
    QString word;
    for (int left = below(4); left > 0; --left)
        word += oneOf({"a", "A", "b", "B", "c", "1", " "});
    return below(8) == 0 ? same(u"Null"_s) : same(u'\'' + word + u'\'');
}

Twin RandomStatements::date()
{
    const int day = 1 + below(9);
    const QString stored = u"'2001-02-0%1'"_s.arg(day);
    return {below(2) == 0 ? u"#2/%1/2001#"_s.arg(day) : stored, stored};
}

Twin RandomStatements::row(const QString &table)
{
    const auto number = [this](int limit) {
        return same(below(6) == 0 ? u"Null"_s : QString::number(below(limit) - 3));
    };
    if (table == u"u"_s)
        return filled("Insert Into u (tid, s, k) Values (%1, %2, %3)", {number(12), literal(), number(6)});
    const Twin quarter = below(6) == 0 ? same(u"Null"_s) : same(QString::number(below(16) / 4.0));
    const Twin day = below(4) == 0 ? same(u"Null"_s) : date();
    return filled("Insert Into t (a, b, n, x, d) Values (%1, %2, %3, %4, %5)",
                  {literal(), literal(), number(9), quarter, {day.sqlite, day.sqlite}});
}

Twin RandomStatements::number(int depth)
{
    const auto n = [&] { return number(depth - 1); };
    const auto t = [&] { return text(depth - 1); };
    switch (depth > 0 ? below(14) : below(4)) {
    case 0:
        return same(u"t.n"_s);
    case 1:
        return same(u"t.id"_s);
    case 2:
        return same(u"t.x"_s);
    case 3:
        return same(QString::number(below(7)));
    case 4:
        return filled("(%1 + %2)", {n(), n()});
    case 5:
        return filled("(%1 - %2)", {n(), n()});
    case 6:
        return filled("(%1 * -%2)", {n(), n()});
    case 7:
        return filled("(%1 / %2)", "(CAST(%1 AS REAL) / %2)", {n(), n()});
    case 8:
        return filled("(t.n \\ %1)", "(t.n / %1)", {same(QString::number(below(4)))});
    case 9:
        return filled("(t.n Mod %1)", "(t.n % %1)", {same(QString::number(below(4)))});
    case 10:
        return filled("Len(%1)", "length(%1)", {t()});
    case 11:
        return filled("IIf(%1, %2, %3)", "(CASE WHEN %1 THEN %2 ELSE %3 END)",
                      {condition(depth - 1), n(), n()});
    case 12:
        return filled("Nz(%1, 0)", "coalesce(%1, 0)", {n()});
    default:
        return filled("(Select Count(k) From u Where u.tid = t.id And u.s >= %1)", {t()});
    }
}

Twin RandomStatements::text(int depth)
{
    const auto t = [&] { return text(depth - 1); };
    switch (depth > 0 ? below(11) : below(3)) {
    case 0:
        return same(u"t.a"_s);
    case 1:
        return same(u"t.b"_s);
    case 2:
        return literal();
    case 3:
        return filled("(%1 & %2)", "(coalesce(%1, '') || coalesce(%2, ''))", {t(), t()});
    case 4:
        return filled("Left(%1, 2)", "substr(%1, 1, 2)", {t()});
    case 5:
        return filled("Mid(%1, 2)", "substr(%1, 2)", {t()});
    case 6:
        return filled("UCase(%1)", "upper(%1)", {t()});
    case 7:
        return filled("Trim(%1)", "trim(%1)", {t()});
    case 8:
        return filled("IIf(%1, %2, %3)", "(CASE WHEN %1 THEN %2 ELSE %3 END)",
                      {condition(depth - 1), t(), t()});
    case 9:
        return filled("Nz(%1, 'A')", "coalesce(%1, 'A')", {t()});
    default:
        return filled("(Select Max(s) From u Where u.tid = t.id)",
                      "(SELECT max(s) FROM u WHERE u.tid = t.id)", {});
    }
}

Twin RandomStatements::pattern()
{
    Twin made;
    for (int left = 1 + below(4); left > 0; --left) {
        const int kind = below(6);
        const QString letter = oneOf({"a", "B", "c", "1"});
        made.dialect += kind == 0 ? u"*"_s : kind == 1 ? u"?"_s : letter;
        made.sqlite += kind == 0 ? u"%"_s : kind == 1 ? u"_"_s : letter;
    }
    return {u'\'' + made.dialect + u'\'', u'\'' + made.sqlite + u'\''};
}

Twin RandomStatements::comparison(int depth)
{
    const auto n = [&] { return number(depth); };
    const auto t = [&] { return text(depth); };
    const Twin sign = same(oneOf({"=", "<>", "<", ">", "<=", ">="}));
    const Twin no = same(oneOf({"", "Not "}));
    // Texts of the bare side that are made, not stored, have to be told how they compare.
    switch (below(10)) {
    case 0:
        return filled("%1 %2 %3", {n(), sign, n()});
    case 1:
        return filled("%1 %2 %3", "%1 %2 %3 COLLATE NOCASE", {t(), sign, t()});
    case 2:
        return filled("t.a %2 %1", "t.a %2 %1", {t(), sign});
    case 3:
        return filled("%1 %2Between %3 And %4", {n(), no, n(), n()});
    case 4:
        return filled("%1 %2Between %3 And %4", "%1 COLLATE NOCASE %2BETWEEN %3 AND %4", {t(), no, t(), t()});
    case 5:
        return filled("%1 %2In (%3, %4, 'b')", "%1 COLLATE NOCASE %2IN (%3, %4, 'b')", {t(), no, t(), t()});
    case 6:
        return filled("t.id %1In (Select tid From u Where k > %2 And tid Is Not Null)", {no, n()});
    case 7:
        return filled("%1 %2Like %3", {t(), no, pattern()});
    case 8:
        return filled("t.d %1 %2", {sign, date()});
    default:
        return filled("%1 Is %2Null", {below(2) == 0 ? n() : t(), no});
    }
}

Twin RandomStatements::condition(int depth)
{
    const auto c = [&] { return condition(depth - 1); };
    switch (depth > 0 ? below(8) : 7) {
    case 0:
        return filled("(%1 And %2)", {c(), c()});
    case 1:
        return filled("(%1 Or %2 Or %3)", {c(), c(), c()});
    case 2:
        return filled("Not (%1)", "NOT (%1)", {c()});
    case 3:
        return filled("((%1) Xor (%2))", "((%1) <> (%2))", {c(), c()});
    case 4:
        return filled("Exists (Select * From u Where u.tid = t.id And (u.k > 0 Or %1))", {c()});
    default:
        return filled("(%1)", {comparison(std::min(depth, 2))});
    }
}

Twin RandomStatements::orderedSelection()
{
    const Twin shown = below(2) == 0 ? text(2) : number(2);
    const Twin down = same(oneOf({"", " Desc"}));
    const Twin first = below(2) == 0 ? same(u"v"_s) : filled("%1", "%1 COLLATE NOCASE", {text(1)});
    // The key decides between equal rows, in the direction of the last term.
    return filled("Select id, %1 As v From t Where %2 Order By %3%4",
                  "SELECT id, %1 AS v FROM t WHERE %2 ORDER BY %3 COLLATE NOCASE%4, id%4",
                  {shown, condition(), first, down});
}

Twin RandomStatements::groupedSelection()
{
    const Twin by = text(1);
    if (below(2) == 0)
        return filled("Select Distinct %1 As v From t Where %2",
                      "SELECT DISTINCT %1 COLLATE NOCASE AS v FROM t WHERE %2", {by, condition()});
    return filled(
        "Select Count(*) As c, Sum(n) As s, Min(x) As l, Max(LCase(a)) As h, Count(b) As m From t Where %2 "
        "Group By %1 Having Count(*) > %3",
        "SELECT count(*), sum(n), min(x), max(lower(a)), count(b) FROM t WHERE %2 "
        "GROUP BY %1 COLLATE NOCASE HAVING count(*) > %3",
        {by, condition(), same(QString::number(below(3)))});
}

Twin RandomStatements::joinedSelection()
{
    if (below(3) == 0)
        return filled(
            "Select v, id From (Select id, %1 As v, n From t) As q Where v >= %2 Or q.n > 2",
            "SELECT v, id FROM (SELECT id, %1 AS v, n FROM t) AS q WHERE v COLLATE NOCASE >= %2 OR q.n > 2",
            {text(2), literal()});
    if (below(2) == 0)
        return filled("Select Distinctrow id, a From t Inner Join u On t.id = u.tid Where %1",
                      "SELECT id, a FROM t WHERE id IN (SELECT tid FROM u) AND %1", {condition()});
    return filled("Select t.id, u.s, k From t %1 Join u On t.id = u.tid And u.k > %2 Where %3",
                  {same(oneOf({"Inner", "Left"})), number(1), condition()});
}

Twin RandomStatements::selection(bool &ordered)
{
    const int kind = below(4);
    ordered = kind < 2;
    return ordered ? orderedSelection() : kind == 2 ? groupedSelection() : joinedSelection();
}

Twin RandomStatements::action()
{
    switch (below(4)) {
    case 0:
        return filled("Update t Set n = Len(a) - n, x = %1 Where %2",
                      "UPDATE t SET n = length(a) - n, x = %1 WHERE %2", {number(2), condition()});
    case 1:
        return filled("Update t Set a = %1, d = #2/3/2001# Where %2",
                      "UPDATE t SET a = %1, d = '2001-02-03' WHERE %2", {text(2), condition()});
    case 2:
        return filled("Delete * From t Where %1", "DELETE FROM t WHERE %1", {condition()});
    default:
        return filled("Insert Into u (tid, s, k) Select id, %1, n From t Where %2", {text(2), condition()});
    }
}

} // namespace quaverly::test
