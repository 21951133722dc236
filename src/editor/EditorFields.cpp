// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/EditorFields.h"

#include "catalogue/SongFields.h"
#include "platform/store/Dao.h"
#include "platform/text/Text.h"

#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

using enum KeptAs;

constexpr EditedField FirstFields[] = {
    {"txtSongName"_L1, "SongName"_L1, Trimmed},
    {"txtArtist"_L1, "Artist"_L1, Trimmed},
    {"txtID"_L1, "ID"_L1, Trimmed},
    {"txtBPM"_L1, "BPM"_L1, Trimmed},
    {"txtComposer"_L1, "Composer"_L1, Trimmed},
    {"txtAlbum"_L1, "AlbumName"_L1, Trimmed},
    // Untrimmed: genres from the list are kept with their blanks.
    {"cmbGenre"_L1, "Genre"_L1, EmptyIsNull},
    {"txtBitrate"_L1, "Bitrate"_L1, Trimmed},
    {"txtDuration"_L1, "Duration"_L1, Trimmed},
    {"txtTrackText"_L1, "TrackText"_L1, Trimmed},
    {"txtFileSize"_L1, "FileSize"_L1, Trimmed},
    {"txtPathName"_L1, "PathName"_L1, AsItStands},
    {"txtFileName"_L1, "FileName"_L1, AsItStands},
    {"cmbRating"_L1, "Rating"_L1, EmptyIsNull},
    {"txtYear"_L1, "Year"_L1, Trimmed},
    {"txtPurchaseDate"_L1, "PurchaseDate"_L1, EmptyIsNull},
    {"txtDate2_Desc"_L1, "Date2_Desc"_L1, AsItStands},
    {"txtDate2"_L1, "Date2"_L1, EmptyIsNull},
    {"txtMiscField1_Desc"_L1, "MiscField1_Desc"_L1, AsItStands},
    {"txtMiscField1"_L1, "MiscField1"_L1, AsItStands},
    {"txtMiscField2_Desc"_L1, "MiscField2_Desc"_L1, AsItStands},
    {"txtMiscField2"_L1, "MiscField2"_L1, AsItStands},
    {"txtMiscField3_Desc"_L1, "MiscField3_Desc"_L1, AsItStands},
    {"txtMiscField3"_L1, "MiscField3"_L1, AsItStands},
    {"txtCode"_L1, "Code"_L1, AsItStands},
    {"txtNotes"_L1, "Notes"_L1, AsItStands},
    {"txtPic1File"_L1, "PicturePath1"_L1, TrimmedEmptyIsNull},
    {"txtPic2File"_L1, "PicturePath2"_L1, TrimmedEmptyIsNull},
    {"txtPic3File"_L1, "PicturePath3"_L1, TrimmedEmptyIsNull},
    {"txtPic4File"_L1, "PicturePath4"_L1, TrimmedEmptyIsNull},
    {"txtPic5File"_L1, "PicturePath5"_L1, TrimmedEmptyIsNull},
    {"txtPic6File"_L1, "PicturePath6"_L1, TrimmedEmptyIsNull},
    {"txtPic7File"_L1, "PicturePath7"_L1, TrimmedEmptyIsNull},
    {"txtPic8File"_L1, "PicturePath8"_L1, TrimmedEmptyIsNull},
};

/** The texts that came later: each has a line of its own, named as the others are. */
std::vector<EditedField> allFields()
{
    static std::vector<QByteArray> names;
    std::vector<EditedField> fields(std::begin(FirstFields), std::end(FirstFields));
    names.reserve(laterFields().size());
    for (const SongField &later : laterFields()) {
        if (later.type != dao::FieldType::Text)
            continue;
        names.push_back("txt" + QByteArray(later.name.data(), later.name.size()));
        fields.push_back({QLatin1StringView(names.back()), later.name, Trimmed});
    }
    return fields;
}

QString shownText(const QVariant &value)
{
    if (value.isNull())
        return {};
    return value.typeId() == QMetaType::QDateTime ? shortDate(value.toDateTime()) : NullToEmpty(value);
}

std::optional<double> numberOf(const QString &text)
{
    const double number = Val(ReplaceText(text, u","_s, {}));
    return IsNumeric(text) && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

} // namespace

std::span<const EditedField> editedFields()
{
    static const std::vector<EditedField> fields = allFields();
    return fields;
}

SongTexts textsOf(const dao::Recordset &song)
{
    SongTexts texts;
    for (const EditedField &edited : editedFields()) {
        // An older catalogue that can't be written to lacks the later fields.
        if (song.fieldIndex(edited.field) >= 0)
            texts[edited.field] = shownText(song.value(edited.field));
    }
    for (const QString &date : {u"DateUpdated"_s, u"DateAdded"_s}) {
        if (song.fieldIndex(date) >= 0)
            texts[date] = shownText(song.value(date));
    }
    return texts;
}

QVariant valueToKeep(KeptAs kept, const QString &text)
{
    const QString trimmed = kept == Trimmed || kept == TrimmedEmptyIsNull ? text.trimmed() : text;
    if (kept == EmptyIsNull || kept == TrimmedEmptyIsNull)
        return EmptyToNull(trimmed);
    // A null text would be stored as Null.
    return trimmed.isNull() ? u""_s : trimmed;
}

std::optional<double> trackNumber(const QString &trackText)
{
    constexpr qsizetype FirstPart = 2;
    const QString trimmed = trackText.trimmed();
    const auto whole = numberOf(trimmed);
    return whole ? whole : numberOf(trimmed.left(FirstPart));
}

} // namespace quaverly
