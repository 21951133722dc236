// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <vector>

namespace dao {

enum class TokenKind { Word, BracketedName, Text, Number, Date, Symbol, End };

struct Token
{
    TokenKind kind = TokenKind::End;
    /** Without its quotes, brackets or number signs; doubled quotes made single. */
    QString text;
    /** Place in the statement, in characters from 0. */
    qsizetype position = 0;

    [[nodiscard]] bool is(QStringView word) const
    {
        return (kind == TokenKind::Word || kind == TokenKind::Symbol) &&
               word.compare(text, Qt::CaseInsensitive) == 0;
    }
};

/** Splits a statement of the dialect; the last token is End. @throws 3075 with the place. */
[[nodiscard]] std::vector<Token> tokensOf(const QString &sql);

/** The error for a statement that can't be read at that place. */
[[noreturn]] void throwSyntaxError(const QString &sql, qsizetype position, const QString &why = {});

} // namespace dao
