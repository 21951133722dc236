// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagPage.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr auto Between = "; "_L1;

struct KnownField
{
    QLatin1StringView name;
    QLatin1StringView label;
    QLatin1StringView record = {};
    bool hasSeveral = false;
};

constexpr KnownField Known[] = {
    {"TITLE"_L1, "Title"_L1, "SongName"_L1},
    {"ARTIST"_L1, "Artist"_L1, "Artist"_L1, true},
    {"ALBUM"_L1, "Album"_L1, "AlbumName"_L1},
    {"ALBUMARTIST"_L1, "Album artist"_L1, "AlbumArtist"_L1, true},
    {"GENRE"_L1, "Genre"_L1, "Genre"_L1, true},
    {"DATE"_L1, "Year"_L1, "Year"_L1},
    {"TRACKNUMBER"_L1, "Track"_L1, "TrackText"_L1},
    {"DISCNUMBER"_L1, "Disc"_L1, "Disc"_L1},
    {"COMPOSER"_L1, "Composer"_L1, "Composer"_L1, true},
    {"BPM"_L1, "BPM"_L1, "BPM"_L1},
    {"COMMENT"_L1, "Comment"_L1, "Notes"_L1},
    {"LYRICS"_L1, "Lyrics"_L1},
    {"COMPILATION"_L1, "Compilation"_L1},
    {"REPLAYGAIN_TRACK_GAIN"_L1, "Track gain"_L1},
    {"REPLAYGAIN_TRACK_PEAK"_L1, "Track peak"_L1},
    {"REPLAYGAIN_ALBUM_GAIN"_L1, "Album gain"_L1},
    {"REPLAYGAIN_ALBUM_PEAK"_L1, "Album peak"_L1},
};

const KnownField *known(const QString &field)
{
    const auto *found = std::ranges::find(Known, field, &KnownField::name);
    return found == std::end(Known) ? nullptr : found;
}

/** Tags hold whole dates where the record has a year. */
QString forRecord(const QString &field, const QString &text)
{
    const bool beginsWithYear =
        field == "DATE"_L1 && text.size() > 4 &&
        std::all_of(text.begin(), text.begin() + 4, [](QChar c) { return c.isDigit(); });
    return beginsWithYear ? text.first(4) : text;
}

QStringList valuesOf(const QString &field, const QString &text, const QStringList &before)
{
    if (text.isEmpty())
        return {};
    const KnownField *of = known(field);
    const bool several = before.size() > 1 || (of && of->hasSeveral);
    return several ? text.split(Between, Qt::SkipEmptyParts) : QStringList(text);
}

QString pictureCount(qsizetype count)
{
    return count == 0 ? u"None"_s : count == 1 ? u"1 picture"_s : u"%1 pictures"_s.arg(count);
}

} // namespace

QStringList tagRecordFields()
{
    QStringList fields;
    for (const KnownField &field : Known) {
        if (!field.record.isEmpty())
            fields += field.record;
    }
    return fields;
}

TagPage::TagPage(std::vector<TaggedSong> songs)
{
    for (const KnownField &field : Known)
        m_fields += field.name;
    std::set<QString> others;
    for (TaggedSong &song : songs) {
        for (auto field = song.file.fields.keyBegin(); field != song.file.fields.keyEnd(); ++field)
            others.insert(*field);
        m_songs.push_back({std::move(song), {}, {}, {}});
    }
    for (const QString &field : others)
        addField(field);
}

void TagPage::addField(const QString &field)
{
    if (!field.isEmpty() && !m_fields.contains(field))
        m_fields += field;
}

QString TagPage::label(const QString &field)
{
    const KnownField *of = known(field);
    return of ? QString(of->label) : field;
}

QString TagPage::recordField(const QString &field)
{
    const KnownField *of = known(field);
    return of ? QString(of->record) : QString();
}

QString TagPage::fileNow(const Song &song, const QString &field)
{
    return song.now.file.fields.value(field).join(Between);
}

QString TagPage::recordNow(const Song &song, const QString &field)
{
    return song.now.record.value(recordField(field));
}

QString TagPage::fileWanted(const Song &song, const QString &field)
{
    return song.wantedFile.value(field, fileNow(song, field));
}

QString TagPage::recordWanted(const Song &song, const QString &field)
{
    return song.wantedRecord.value(field, recordNow(song, field));
}

bool TagPage::differs(const Song &song, const QString &field)
{
    return !recordField(field).isEmpty() &&
           recordWanted(song, field).trimmed() != forRecord(field, fileWanted(song, field)).trimmed();
}

namespace {

template <typename Text> std::optional<QString> common(const QList<int> &songs, const Text &text)
{
    std::optional<QString> first;
    for (const int song : songs) {
        const QString one = text(song);
        if (first && *first != one)
            return {};
        first = one;
    }
    return first.value_or(QString());
}

} // namespace

std::optional<QString> TagPage::fileText(const QString &field, const QList<int> &songs) const
{
    return common(songs, [&](int song) { return fileWanted(at(song), field); });
}

std::optional<QString> TagPage::recordText(const QString &field, const QList<int> &songs) const
{
    return common(songs, [&](int song) { return recordWanted(at(song), field); });
}

bool TagPage::differs(const QString &field, const QList<int> &songs) const
{
    return std::ranges::any_of(songs, [&](int song) { return differs(at(song), field); });
}

bool TagPage::isChanged(const QString &field, bool ofFile, const QList<int> &songs) const
{
    return std::ranges::any_of(songs, [&](int song) {
        return (ofFile ? at(song).wantedFile : at(song).wantedRecord).contains(field);
    });
}

void TagPage::setFileText(const QString &field, const QList<int> &songs, const QString &text)
{
    // Tags end a text at its first NUL.
    const QString kept = QString(text).remove(QChar::Null);
    for (const int song : songs) {
        if (kept == fileNow(at(song), field))
            at(song).wantedFile.remove(field);
        else
            at(song).wantedFile[field] = kept;
    }
}

void TagPage::takeToFile(const QString &field, const QList<int> &songs)
{
    for (const int song : songs) {
        if (differs(at(song), field))
            setFileText(field, {song}, recordWanted(at(song), field));
    }
}

void TagPage::takeToRecord(const QString &field, const QList<int> &songs)
{
    for (const int song : songs) {
        Song &one = at(song);
        if (!differs(one, field))
            continue;
        const QString text = forRecord(field, fileWanted(one, field));
        if (text == recordNow(one, field))
            one.wantedRecord.remove(field);
        else
            one.wantedRecord[field] = text;
    }
}

const QList<shell::TagPicture> &TagPage::pictures(int song) const
{
    return at(song).pictures ? *at(song).pictures : at(song).now.file.pictures;
}

void TagPage::setPictures(const QList<int> &songs, const QList<shell::TagPicture> &pictures)
{
    for (const int song : songs) {
        if (pictures == at(song).now.file.pictures)
            at(song).pictures.reset();
        else
            at(song).pictures = pictures;
    }
}

std::vector<TagPlan> TagPage::plans() const
{
    std::vector<TagPlan> all;
    for (int place = 0; place < count(); ++place) {
        const Song &song = at(place);
        for (const QString &field : m_fields) {
            if (song.wantedFile.contains(field))
                all.push_back({place, field, true, fileNow(song, field), fileWanted(song, field)});
            if (song.wantedRecord.contains(field))
                all.push_back({place, field, false, recordNow(song, field), recordWanted(song, field)});
        }
        if (song.pictures)
            all.push_back({place,
                           {},
                           true,
                           pictureCount(song.now.file.pictures.size()),
                           pictureCount(song.pictures->size())});
    }
    return all;
}

shell::TagEdit TagPage::edit(int song, const std::vector<TagPlan> &plans) const
{
    shell::TagEdit edit;
    for (const TagPlan &plan : plans) {
        if (plan.song != song || !plan.toFile)
            continue;
        if (plan.field.isEmpty())
            edit.pictures = at(song).pictures;
        else
            edit.fields[plan.field] =
                valuesOf(plan.field, plan.after, at(song).now.file.fields.value(plan.field));
    }
    return edit;
}

QMap<QString, QString> TagPage::recordEdit(int song, const std::vector<TagPlan> &plans) const
{
    QMap<QString, QString> edit;
    for (const TagPlan &plan : plans) {
        if (plan.song == song && !plan.toFile)
            edit[recordField(plan.field)] = plan.after;
    }
    return edit;
}

void TagPage::settle(const TagPlan &plan)
{
    Song &song = at(plan.song);
    if (plan.field.isEmpty()) {
        song.pictures.reset();
    } else if (plan.toFile) {
        song.wantedFile.remove(plan.field);
    } else {
        song.wantedRecord.remove(plan.field);
        song.now.record[recordField(plan.field)] = plan.after;
    }
}

} // namespace quaverly
