// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/FilePrefix.h"

#include "desktop/FileHelpers.h"
#include "platform/text/Text.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr QChar Backslash = u'\\';

bool isSeparator(QChar character)
{
    return character == u'/' || character == Backslash;
}

/** The separator that the other machine uses, as far as the text tells. */
QChar separatorOf(const QString &folder)
{
    const qsizetype slash = folder.lastIndexOf(u'/');
    const qsizetype backslash = folder.lastIndexOf(Backslash);
    if (slash != backslash)
        return slash > backslash ? QChar(u'/') : Backslash;
    const bool isDrive = folder.size() == 2 && folder.at(0).isLetter() && folder.at(1) == u':';
    return isDrive ? Backslash : PathSeparator;
}

} // namespace

QString FilePrefix::thisMachine()
{
    return u"this machine"_s;
}

FilePrefix::FilePrefix(const QString &answer) : m_prefix(answer.trimmed())
{
    if (m_prefix.isEmpty() || !isSeparator(m_prefix.back()))
        m_prefix += separatorOf(m_prefix);
    const QString word = m_prefix.chopped(1);
    // In capitals neither is one of the words: they are folders then.
    m_keepsPaths = word == thisMachine();
    if (m_keepsPaths || word == "none"_L1)
        m_prefix.clear();
}

QString FilePrefix::line(const QString &FileName) const
{
    return m_keepsPaths ? FileName : m_prefix + fileNameOf(FileName);
}

} // namespace quaverly
