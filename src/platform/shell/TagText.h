// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <taglib/tstring.h>
#include <taglib/tstringlist.h>

/** Texts of tags as the columns show them. */
namespace shell {

/** Up to the first NUL; surrogates are kept as they come. */
[[nodiscard]] QString fromTag(const TagLib::String &text);

/** 8-bit text by the rule of the system's code page, up to the first NUL. */
[[nodiscard]] QString fromTagBytes(QByteArrayView bytes);

/** Several values of one field, each once, joined with "; "; empty ones are left out. */
[[nodiscard]] QString joined(const TagLib::StringList &values);
[[nodiscard]] QString joined(const QStringList &values);

/** A genre by its number ("17", "(17)", "RX"), or the text as it stands. */
[[nodiscard]] QString genreName(const QString &text);
[[nodiscard]] QString genres(const TagLib::StringList &values);

/** The year of a date in any order; empty when none of its numbers reads as one. */
[[nodiscard]] QString yearOf(const QString &date);

/** Beats a minute as a whole number: "128 BPM" is 128, "84,5" is 84; empty without a number. */
[[nodiscard]] QString beatsOf(const QString &text);

/** "3", or "3/12" where the number of tracks is known; empty for track 0. */
[[nodiscard]] QString trackText(qint64 track, qint64 tracks = 0);

/** From here on TagLib reads 8-bit text by the rule of the system's code page. */
void useSystemCodePageInTags();

} // namespace shell
