// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/SqlFunctions.h"

#include "platform/store/Collation.h"
#include "platform/store/DateArithmetic.h"
#include "platform/store/Like.h"
#include "platform/store/StoredDate.h"
#include "platform/text/Text.h"

#include <QDateTime>

#include <cmath>
#include <memory>
#include <optional>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** The arguments of one call, read as the dialect's types. */
class Arguments
{
public:
    Arguments(int count, sqlite3_value **values) : m_count(count), m_values(values) {}

    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] bool isNull(int i) const { return sqlite3_value_type(m_values[i]) == SQLITE_NULL; }
    [[nodiscard]] bool anyNull() const
    {
        for (int i = 0; i < m_count; ++i) {
            if (isNull(i))
                return true;
        }
        return false;
    }
    [[nodiscard]] QByteArrayView bytes(int i) const
    {
        const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(m_values[i]));
        return {text, sqlite3_value_bytes(m_values[i])};
    }
    [[nodiscard]] QString text(int i) const
    {
        // A whole number is written as one, whatever its column holds.
        if (sqlite3_value_type(m_values[i]) == SQLITE_FLOAT)
            return QString::number(sqlite3_value_double(m_values[i]), 'g', 15);
        return QString::fromUtf8(bytes(i));
    }
    /** A number is tested as it is written; nothing comes back for a Null. */
    [[nodiscard]] std::optional<bool> isLike(int i, const LikePattern &pattern) const
    {
        switch (sqlite3_value_type(m_values[i])) {
        case SQLITE_NULL:
            return std::nullopt;
        case SQLITE_FLOAT:
            return pattern.matches(text(i).toUtf8());
        default:
            // The length costs less than the text, which SQLite may have to copy first.
            return sqlite3_value_bytes(m_values[i]) >= pattern.leastBytes() && pattern.matches(bytes(i));
        }
    }
    [[nodiscard]] double number(int i) const
    {
        const int type = sqlite3_value_type(m_values[i]);
        return type == SQLITE_TEXT ? quaverly::Val(text(i)) : sqlite3_value_double(m_values[i]);
    }
    [[nodiscard]] bool isNumber(int i) const { return sqlite3_value_type(m_values[i]) != SQLITE_TEXT; }
    /** A count of characters, held within what a text can have. */
    [[nodiscard]] qsizetype length(int i) const
    {
        return static_cast<qsizetype>(std::clamp(std::round(number(i)), -1.0, 2e9));
    }
    [[nodiscard]] QDateTime date(int i) const
    {
        const QString stored = text(i);
        const QDateTime date = dateFromStored(stored);
        return date.isValid() ? date : quaverly::parseDate(stored).value_or(QDateTime());
    }

private:
    int m_count;
    sqlite3_value **m_values;
};

class Result
{
public:
    explicit Result(sqlite3_context *context) : m_context(context) {}

    void set(const QString &text) const
    {
        const QByteArray utf8 = text.toUtf8();
        sqlite3_result_text64(m_context, utf8.constData(), static_cast<sqlite3_uint64>(utf8.size()),
                              SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    void set(double number) const
    {
        if (number == std::floor(number) && std::abs(number) < 9e15)
            sqlite3_result_int64(m_context, static_cast<qint64>(number));
        else
            sqlite3_result_double(m_context, number);
    }
    void set(qint64 number) const { sqlite3_result_int64(m_context, number); }
    void set(bool truth) const { sqlite3_result_int(m_context, truth ? 1 : 0); }
    void set(const QDateTime &date) const
    {
        if (date.isValid())
            set(storedDate(date));
        else
            sqlite3_result_null(m_context);
    }
    void setError(const char *text) const { sqlite3_result_error(m_context, text, -1); }

private:
    sqlite3_context *m_context;
};

using Function = void (*)(const Arguments &, const Result &);

/** Longest text that a function may make, in characters: enough for notes, no bomb. */
constexpr double LongestText = 1e7;

void functionMid(const Arguments &a, const Result &r)
{
    const qsizetype start = a.length(1);
    if (start < 1)
        return r.setError("Invalid procedure call");
    r.set(a.count() > 2 ? a.text(0).mid(start - 1, a.length(2)) : a.text(0).mid(start - 1));
}

void functionInStr(const Arguments &a, const Result &r)
{
    const int first = a.count() > 2 ? 1 : 0;
    const qsizetype start = first == 1 ? a.length(0) : 1;
    const QString find = a.text(first + 1);
    const QString in = a.text(first);
    if (start < 1 || in.isEmpty() || start > in.size())
        return r.set(qint64(0));
    r.set(qint64(find.isEmpty() ? start : in.indexOf(find, start - 1, Qt::CaseInsensitive) + 1));
}

void functionReplace(const Arguments &a, const Result &r)
{
    const QString source = a.text(0);
    const QString find = a.text(1);
    const QString replacement = a.text(2);
    if (find.isEmpty())
        return r.set(source);
    const auto found = static_cast<double>(source.count(find, Qt::CaseInsensitive));
    if (found * static_cast<double>(replacement.size()) > LongestText)
        return r.setError("The result would be too large");
    r.set(QString(source).replace(find, replacement, Qt::CaseInsensitive));
}

// Halves go to the even neighbour, as everywhere in the dialect.
void functionRound(const Arguments &a, const Result &r)
{
    const double scale = std::pow(10.0, a.count() > 1 ? std::clamp(a.number(1), 0.0, 15.0) : 0.0);
    const double rounded = std::nearbyint(a.number(0) * scale) / scale;
    r.set(std::isfinite(rounded) ? rounded : a.number(0));
}

void functionAdd(const Arguments &a, const Result &r)
{
    if (a.isNumber(0) || a.isNumber(1))
        r.set(a.number(0) + a.number(1));
    else
        r.set(a.text(0) + a.text(1));
}

void functionDateAdd(const Arguments &a, const Result &r)
{
    const QDateTime date = a.date(2);
    if (!date.isValid() || std::abs(a.number(1)) > 1e8)
        return r.set(QDateTime());
    const auto sum = dateAdd(a.text(0), static_cast<int>(std::lround(a.number(1))), date);
    if (!sum)
        return r.setError("Invalid procedure call");
    r.set(*sum);
}

void functionDateDiff(const Arguments &a, const Result &r)
{
    const auto difference = dateDiff(a.text(0), a.date(1), a.date(2));
    if (!difference)
        return r.setError("Invalid procedure call");
    r.set(*difference);
}

void functionFormat(const Arguments &a, const Result &r)
{
    const QString form = a.text(1);
    const QDateTime stored = a.isNumber(0) ? QDateTime() : dateFromStored(a.text(0));
    if (stored.isValid())
        return r.set(formatDate(stored, form));
    if (!a.isNumber(0) && !quaverly::IsNumeric(a.text(0)))
        return r.set(formatText(a.text(0), form));
    r.set(formatNumber(a.number(0), form));
}

QDateTime now()
{
    const QDateTime local = QDateTime::currentDateTime();
    return {local.date(), QTime(local.time().hour(), local.time().minute(), local.time().second()), Qt::UTC};
}

struct Named
{
    const char *name;
    int arguments; // -1: any number that the function table lets through
    Function function;
    bool seesNulls = false;
    bool constant = true;
};

const Named Functions[] = {
    {"dao_len", 1, [](const Arguments &a, const Result &r) { r.set(qint64(a.text(0).size())); }},
    {"dao_ucase", 1, [](const Arguments &a, const Result &r) { r.set(a.text(0).toUpper()); }},
    {"dao_lcase", 1, [](const Arguments &a, const Result &r) { r.set(a.text(0).toLower()); }},
    {"dao_left", 2,
     [](const Arguments &a, const Result &r) { r.set(a.text(0).left(std::max<qsizetype>(0, a.length(1)))); }},
    {"dao_right", 2,
     [](const Arguments &a, const Result &r) {
         r.set(a.text(0).right(std::max<qsizetype>(0, a.length(1))));
     }},
    {"dao_mid", -1, functionMid},
    {"dao_instr", -1, functionInStr},
    {"dao_trim", 1, [](const Arguments &a, const Result &r) { r.set(trimBlanks(a.text(0), true, true)); }},
    {"dao_ltrim", 1, [](const Arguments &a, const Result &r) { r.set(trimBlanks(a.text(0), true, false)); }},
    {"dao_rtrim", 1, [](const Arguments &a, const Result &r) { r.set(trimBlanks(a.text(0), false, true)); }},
    {"dao_val", 1, [](const Arguments &a, const Result &r) { r.set(a.number(0)); }},
    {"dao_isnumeric", 1,
     [](const Arguments &a, const Result &r) {
         r.set(!a.isNull(0) && (a.isNumber(0) || quaverly::IsNumeric(a.text(0))));
     },
     true},
    {"dao_isdate", 1, [](const Arguments &a, const Result &r) { r.set(!a.isNull(0) && a.date(0).isValid()); },
     true},
    {"dao_date", 0, [](const Arguments &, const Result &r) { r.set(now().date().startOfDay(Qt::UTC)); },
     false, false},
    {"dao_now", 0, [](const Arguments &, const Result &r) { r.set(now()); }, false, false},
    {"dao_cdate", 1, [](const Arguments &a, const Result &r) { r.set(a.date(0)); }},
    {"dao_shortdate", 1, [](const Arguments &a, const Result &r) { r.set(quaverly::shortDate(a.date(0))); }},
    {"dao_datepart", 2,
     [](const Arguments &a, const Result &r) { r.set(datePart(a.text(0), a.date(1)).value_or(0)); }},
    {"dao_dateadd", 3, functionDateAdd},
    {"dao_datediff", 3, functionDateDiff},
    {"dao_format", 2, functionFormat},
    {"dao_cstr", 1, [](const Arguments &a, const Result &r) { r.set(a.text(0)); }},
    {"dao_clng", 1, [](const Arguments &a, const Result &r) { r.set(std::nearbyint(a.number(0))); }},
    {"dao_cdbl", 1, [](const Arguments &a, const Result &r) { r.set(a.number(0)); }},
    {"dao_abs", 1, [](const Arguments &a, const Result &r) { r.set(std::abs(a.number(0))); }},
    {"dao_int", 1, [](const Arguments &a, const Result &r) { r.set(std::floor(a.number(0))); }},
    {"dao_fix", 1, [](const Arguments &a, const Result &r) { r.set(std::trunc(a.number(0))); }},
    {"dao_round", -1, functionRound},
    {"dao_strcomp", -1,
     [](const Arguments &a, const Result &r) {
         const bool toTheLetter = a.count() > 2 && a.number(2) == 0;
         const int order =
             toTheLetter ? a.bytes(0).compare(a.bytes(1)) : compareTexts(a.bytes(0), a.bytes(1));
         r.set(qint64((order > 0) - (order < 0)));
     }},
    {"dao_replace", 3, functionReplace},
    {"dao_add", 2, functionAdd},
    {"dao_concat", 2,
     [](const Arguments &a, const Result &r) {
         r.set((a.isNull(0) ? QString() : a.text(0)) + (a.isNull(1) ? QString() : a.text(1)));
     },
     true},
};

void call(sqlite3_context *context, int count, sqlite3_value **values)
{
    const auto *named = static_cast<const Named *>(sqlite3_user_data(context));
    const Arguments arguments(count, values);
    if (!named->seesNulls && arguments.anyNull())
        return sqlite3_result_null(context);
    try {
        named->function(arguments, Result(context));
    } catch (const std::exception &e) {
        sqlite3_result_error(context, e.what(), -1);
    }
}

/** One of the texts behind the pattern is like it. Null when none is and one is Null. */
std::optional<bool> anyLike(const Arguments &arguments, const LikePattern &pattern)
{
    std::optional<bool> answer = false;
    for (int i = 1; i < arguments.count(); ++i) {
        const std::optional<bool> like = arguments.isLike(i, pattern);
        if (!like)
            answer.reset();
        else if (*like)
            return true;
    }
    return answer;
}

// SQLite keeps the pattern for the next row while it is a constant, and may drop it at once if not.
void callLike(sqlite3_context *context, int count, sqlite3_value **values)
{
    const Arguments arguments(count, values);
    if (arguments.isNull(0))
        return sqlite3_result_null(context);
    try {
        const auto *kept = static_cast<const LikePattern *>(sqlite3_get_auxdata(context, 0));
        std::unique_ptr<LikePattern> made;
        if (kept == nullptr)
            made = std::make_unique<LikePattern>(arguments.bytes(0));
        const std::optional<bool> answer = anyLike(arguments, kept == nullptr ? *made : *kept);
        if (answer)
            sqlite3_result_int(context, *answer ? 1 : 0);
        else
            sqlite3_result_null(context);
        if (made)
            sqlite3_set_auxdata(context, 0, made.release(),
                                [](void *held) { delete static_cast<LikePattern *>(held); });
    } catch (const std::exception &e) {
        sqlite3_result_error(context, e.what(), -1);
    }
}

/** What First has seen so far: the value of the row with the lowest key. */
struct FirstValue
{
    sqlite3_value *value = nullptr;
    qint64 key = 0;
};

void firstStep(sqlite3_context *context, int, sqlite3_value **values)
{
    auto *first = static_cast<FirstValue *>(sqlite3_aggregate_context(context, sizeof(FirstValue)));
    const qint64 key = sqlite3_value_int64(values[1]);
    if (first == nullptr || (first->value != nullptr && first->key <= key))
        return;
    sqlite3_value_free(first->value);
    first->value = sqlite3_value_dup(values[0]);
    first->key = key;
}

void firstFinal(sqlite3_context *context)
{
    auto *first = static_cast<FirstValue *>(sqlite3_aggregate_context(context, 0));
    if (first == nullptr || first->value == nullptr)
        return sqlite3_result_null(context);
    sqlite3_result_value(context, first->value);
    sqlite3_value_free(first->value);
}

} // namespace

void registerFunctions(sqlite3 *db)
{
    sqlite3_create_function_v2(db, "dao_first", 2, SQLITE_UTF8 | SQLITE_INNOCUOUS, nullptr, nullptr,
                               firstStep, firstFinal, nullptr);
    sqlite3_create_function_v2(db, "dao_like", -1, SQLITE_UTF8 | SQLITE_INNOCUOUS | SQLITE_DETERMINISTIC,
                               nullptr, callLike, nullptr, nullptr, nullptr);
    for (const Named &named : Functions) {
        const int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | (named.constant ? SQLITE_DETERMINISTIC : 0);
        sqlite3_create_function_v2(db, named.name, named.arguments, flags, const_cast<Named *>(&named), call,
                                   nullptr, nullptr, nullptr);
    }
}

} // namespace dao
