// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>
#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>
#include <span>

namespace dao {
class Recordset;
}

namespace quaverly {

/** What becomes of a control's text when the record is written. */
enum class KeptAs { Trimmed, AsItStands, EmptyIsNull, TrimmedEmptyIsNull };

/** A control of the editor and the field that it shows. */
struct EditedField
{
    QLatin1StringView control;
    QLatin1StringView field;
    KeptAs kept = KeptAs::AsItStands;
};

/** In the order in which they are written. */
[[nodiscard]] std::span<const EditedField> editedFields();

/** The pictures that a song may have. */
inline constexpr int PictureSlots = 8;

/** Texts of the editor's controls, by their fields' names. */
using SongTexts = QMap<QString, QString>;

/** The current row's texts; a Null is the null text, so that a list box can tell it from an empty one. */
[[nodiscard]] SongTexts textsOf(const dao::Recordset &song);

/** What is written for a control's text. */
[[nodiscard]] QVariant valueToKeep(KeptAs kept, const QString &text);

/** The number of a track's text: all of it, or its first two characters; nothing when neither is one. */
[[nodiscard]] std::optional<double> trackNumber(const QString &trackText);

} // namespace quaverly
