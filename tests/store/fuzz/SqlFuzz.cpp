// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/fuzz/SqlFuzz.h"

#include "platform/store/Parser.h"
#include "platform/store/SelectPlan.h"

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

QByteArray statement(const dao::SelectPlan &plan, const QByteArray &extraWhere = {})
{
    QByteArray columns = plan.isKeyed() ? plan.key : QByteArray("1");
    for (const dao::Output &output : plan.outputs)
        columns += ", " + output.sql;
    return plan.sql(columns, extraWhere);
}

QByteArray translated(char kind, const QString &text, dao::DatabaseImpl &catalogue)
{
    if (kind == 'A')
        return dao::planAction(text, catalogue);
    const bool isCriteria = kind != 'S';
    const auto parsed = dao::parseStatement(isCriteria ? u"Select * From qryContacts"_s : text);
    if (parsed.select == nullptr || parsed.kind != dao::ast::Statement::Kind::Select)
        return "SELECT 1";
    const dao::SelectPlan plan = dao::planSelect(*parsed.select, catalogue);
    return statement(plan, isCriteria ? dao::planCriteria(text, plan, catalogue).sql : QByteArray());
}

} // namespace

QString faultOfTranslating(QByteArrayView input, dao::DatabaseImpl &catalogue)
{
    static constexpr int allowed[] = {dao::UnknownField, dao::SyntaxError,       dao::SyntaxErrorInCriteria,
                                      dao::UnknownTable, dao::UndefinedFunction, dao::InvalidOperation,
                                      dao::TooComplex};
    if (input.isEmpty())
        return {};
    const QString text = QString::fromUtf8(input.sliced(1));
    QByteArray sql;
    try {
        sql = translated(input.front(), text, catalogue);
        static_cast<void>(catalogue.connection().prepare(sql));
    } catch (const dao::DaoError &error) {
        if (std::find(std::begin(allowed), std::end(allowed), error.number) == std::end(allowed))
            return u"%1 %2"_s.arg(error.number).arg(error.description);
        // What was translated must be SQL, with no name left to SQLite to look up.
        if (error.description.contains("near \""_L1) || error.description.contains("no such"_L1) ||
            error.description.contains("ambiguous"_L1) || error.description.contains("unrecognized"_L1))
            return error.description + u" <- "_s + QString::fromUtf8(sql);
    }
    return {};
}

} // namespace quaverly::test
