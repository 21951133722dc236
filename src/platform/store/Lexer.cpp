// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/Lexer.h"

#include "platform/store/DaoError.h"

using namespace Qt::StringLiterals;

namespace dao {

void throwSyntaxError(const QString &sql, qsizetype position, const QString &why)
{
    constexpr qsizetype Shown = 40;
    const QString near = sql.mid(position, Shown).simplified();
    QString text = why.isEmpty() ? u"Syntax error"_s : why;
    text += near.isEmpty()
                ? u" at the end of the query expression."_s
                : u" in query expression at character %1, near '%2'."_s.arg(position + 1).arg(near);
    throw DaoError(SyntaxError, text);
}

namespace {

bool startsName(QChar c)
{
    return c.isLetter() || c == u'_';
}

class Lexer
{
public:
    explicit Lexer(const QString &sql) : m_sql(sql) {}

    std::vector<Token> run()
    {
        std::vector<Token> tokens;
        while (true) {
            while (m_at < m_sql.size() && m_sql[m_at].isSpace())
                ++m_at;
            tokens.push_back(next());
            if (tokens.back().kind == TokenKind::End)
                return tokens;
        }
    }

private:
    Token next()
    {
        if (m_at >= m_sql.size())
            return {TokenKind::End, {}, m_sql.size()};
        const QChar c = m_sql[m_at];
        if (c == u'"' || c == u'\'')
            return quoted(c);
        if (c == u'[')
            return enclosed(TokenKind::BracketedName, u']');
        if (c == u'#')
            return enclosed(TokenKind::Date, u'#');
        if (c.isDigit() || (c == u'.' && m_at + 1 < m_sql.size() && m_sql[m_at + 1].isDigit()))
            return number();
        return startsName(c) ? word() : symbol();
    }

    Token quoted(QChar quote)
    {
        const qsizetype start = m_at++;
        QString text;
        while (m_at < m_sql.size()) {
            if (m_sql[m_at] != quote) {
                text += m_sql[m_at++];
                continue;
            }
            if (m_at + 1 >= m_sql.size() || m_sql[m_at + 1] != quote) {
                ++m_at;
                return {TokenKind::Text, text, start};
            }
            text += quote;
            m_at += 2;
        }
        throwSyntaxError(m_sql, start, u"Syntax error in string"_s);
    }

    Token enclosed(TokenKind kind, QChar close)
    {
        const qsizetype start = m_at;
        const qsizetype end = m_sql.indexOf(close, start + 1);
        if (end < 0 || end == start + 1)
            throwSyntaxError(m_sql, start, kind == TokenKind::Date ? u"Syntax error in date"_s : QString());
        m_at = end + 1;
        return {kind, m_sql.mid(start + 1, end - start - 1), start};
    }

    Token number()
    {
        const qsizetype start = m_at;
        const auto digits = [this] {
            while (m_at < m_sql.size() && m_sql[m_at] >= u'0' && m_sql[m_at] <= u'9')
                ++m_at;
        };
        digits();
        if (m_at < m_sql.size() && m_sql[m_at] == u'.') {
            ++m_at;
            digits();
        }
        if (m_at + 1 < m_sql.size() && m_sql[m_at].toLower() == u'e') {
            const qsizetype sign = m_sql[m_at + 1] == u'-' || m_sql[m_at + 1] == u'+' ? 2 : 1;
            if (m_at + sign < m_sql.size() && m_sql[m_at + sign].isDigit()) {
                m_at += sign;
                digits();
            }
        }
        if (m_at == start || (m_at < m_sql.size() && startsName(m_sql[m_at])))
            throwSyntaxError(m_sql, start);
        return {TokenKind::Number, m_sql.mid(start, m_at - start), start};
    }

    Token word()
    {
        const qsizetype start = m_at;
        while (m_at < m_sql.size() &&
               (m_sql[m_at].isLetterOrNumber() || m_sql[m_at] == u'_' || m_sql[m_at].isMark()))
            ++m_at;
        return {TokenKind::Word, m_sql.mid(start, m_at - start), start};
    }

    Token symbol()
    {
        static constexpr std::u16string_view pairs[] = {u"<>", u"<=", u">=", u"=<", u"=>"};
        const QStringView two = QStringView(m_sql).mid(m_at, 2);
        const qsizetype start = m_at;
        for (const auto pair : pairs) {
            if (two == QStringView(pair)) {
                m_at += 2;
                return {TokenKind::Symbol,
                        pair == u"=<"   ? u"<="_s
                        : pair == u"=>" ? u">="_s
                                        : two.toString(),
                        start};
            }
        }
        static constexpr QStringView single = u"()=<>+-*/\\^&,.!;";
        if (!single.contains(m_sql[m_at]))
            throwSyntaxError(m_sql, m_at, u"Invalid character"_s);
        ++m_at;
        return {TokenKind::Symbol, m_sql.mid(start, 1), start};
    }

    const QString &m_sql;
    qsizetype m_at = 0;
};

} // namespace

std::vector<Token> tokensOf(const QString &sql)
{
    if (const qsizetype nul = sql.indexOf(QChar(0)); nul >= 0)
        throwSyntaxError(sql, nul, u"Invalid character"_s);
    return Lexer(sql).run();
}

} // namespace dao
