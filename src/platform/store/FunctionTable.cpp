// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/FunctionTable.h"

namespace dao {

namespace {

constexpr FunctionRule Rules[] = {
    {"Count", 1, 1, ValueType::Number, "count", true},
    {"Sum", 1, 1, ValueType::Number, "sum", true},
    {"Avg", 1, 1, ValueType::Number, "avg", true},
    {"Min", 1, 1, ValueType::Unknown, "min", true},
    {"Max", 1, 1, ValueType::Unknown, "max", true},
    {"First", 1, 1, ValueType::Unknown, "dao_first", true},
    {"Len", 1, 1, ValueType::Number, "dao_len"},
    {"UCase", 1, 1, ValueType::Text, "dao_ucase"},
    {"LCase", 1, 1, ValueType::Text, "dao_lcase"},
    {"Left", 2, 2, ValueType::Text, "dao_left"},
    {"Right", 2, 2, ValueType::Text, "dao_right"},
    {"Mid", 2, 3, ValueType::Text, "dao_mid"},
    {"InStr", 2, 4, ValueType::Number, "dao_instr"},
    {"Trim", 1, 1, ValueType::Text, "dao_trim"},
    {"LTrim", 1, 1, ValueType::Text, "dao_ltrim"},
    {"RTrim", 1, 1, ValueType::Text, "dao_rtrim"},
    {"Val", 1, 1, ValueType::Number, "dao_val"},
    {"IIf", 3, 3, ValueType::Unknown, "(CASE WHEN %1 THEN %2 ELSE %3 END)"},
    {"IsNull", 1, 1, ValueType::Boolean, "(%1 IS NULL)"},
    {"Nz", 1, 2, ValueType::Unknown, "coalesce"},
    {"IsNumeric", 1, 1, ValueType::Boolean, "dao_isnumeric"},
    {"IsDate", 1, 1, ValueType::Boolean, "dao_isdate"},
    {"Date", 0, 0, ValueType::Date, "dao_date"},
    {"Now", 0, 0, ValueType::Date, "dao_now"},
    {"CDate", 1, 1, ValueType::Date, "dao_cdate"},
    {"DateValue", 1, 1, ValueType::Date, "dao_cdate"},
    {"Year", 1, 1, ValueType::Number, "dao_datepart('yyyy', %1)"},
    {"Month", 1, 1, ValueType::Number, "dao_datepart('m', %1)"},
    {"Day", 1, 1, ValueType::Number, "dao_datepart('d', %1)"},
    {"Weekday", 1, 1, ValueType::Number, "dao_datepart('w', %1)"},
    {"Hour", 1, 1, ValueType::Number, "dao_datepart('h', %1)"},
    {"Minute", 1, 1, ValueType::Number, "dao_datepart('n', %1)"},
    {"Second", 1, 1, ValueType::Number, "dao_datepart('s', %1)"},
    {"DatePart", 2, 2, ValueType::Number, "dao_datepart"},
    {"DateAdd", 3, 3, ValueType::Date, "dao_dateadd"},
    {"DateDiff", 3, 3, ValueType::Number, "dao_datediff"},
    {"Format", 2, 2, ValueType::Text, "dao_format"},
    {"CStr", 1, 1, ValueType::Text, "dao_cstr"},
    {"CLng", 1, 1, ValueType::Number, "dao_clng"},
    {"CInt", 1, 1, ValueType::Number, "dao_clng"},
    {"CDbl", 1, 1, ValueType::Number, "dao_cdbl"},
    {"Abs", 1, 1, ValueType::Number, "dao_abs"},
    {"Int", 1, 1, ValueType::Number, "dao_int"},
    {"Fix", 1, 1, ValueType::Number, "dao_fix"},
    {"Round", 1, 2, ValueType::Number, "dao_round"},
    {"StrComp", 2, 3, ValueType::Number, "dao_strcomp"},
    {"Replace", 3, 3, ValueType::Text, "dao_replace"},
};

} // namespace

const FunctionRule *functionRule(const QString &name)
{
    for (const FunctionRule &rule : Rules) {
        if (name.compare(QLatin1StringView(rule.name), Qt::CaseInsensitive) == 0)
            return &rule;
    }
    return nullptr;
}

} // namespace dao
