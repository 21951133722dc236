// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/TagWriter.h"

#include "platform/shell/SoundHash.h"
#include "platform/shell/SystemStamp.h"
#include "platform/shell/TagContainer.h"
#include "platform/shell/TagText.h"
#include "platform/store/DaoError.h"

#include <algorithm>
#include <new>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

[[noreturn]] void refuse(const QString &path, const QString &why)
{
    throw dao::DaoError(dao::PathFileAccess, u"Path/File access error: '%1'.  "_s.arg(path) + why);
}

TagFields fieldsOf(const TagLib::PropertyMap &map)
{
    TagFields fields;
    for (const auto &[key, values] : map) {
        QStringList texts;
        for (const TagLib::String &value : values)
            texts += fromTag(value);
        if (!texts.isEmpty())
            fields[fromTag(key)] = texts;
    }
    return fields;
}

void takeSound(const TagLib::AudioProperties &sound, FileTags &tags)
{
    tags.milliseconds = sound.lengthInMilliseconds();
    tags.bitRate = sound.bitrate();
    tags.sampleRate = sound.sampleRate();
    tags.channels = sound.channels();
}

FileTags tagsOf(const SourceFile &file)
{
    useSystemCodePageInTags();
    try {
        PieceStream stream(file);
        const auto container = openTags(stream);
        if (!container)
            refuse(file.path().text(), u"Its tags can't be read."_s);
        FileTags tags{fieldsOf(container->fields()), container->pictures(), container->kinds(),
                      container->format()};
        if (const TagLib::AudioProperties *sound = container->sound())
            takeSound(*sound, tags);
        tags.stamp = stampFrom(file.about());
        tags.otherNames = static_cast<int>(file.about().st_nlink) - 1;
        return tags;
    } catch (const std::bad_alloc &) {
        refuse(file.path().text(), u"Its tags are too large for the memory."_s);
    }
}

FilePatch plan(const SourceFile &file, const TagEdit &edit)
{
    try {
        PieceStream stream(file);
        const auto container = openTags(stream);
        if (!container || !container->change(TagChange(edit)))
            refuse(file.path().text(), u"Its tags can't be written."_s);
        return stream.patch();
    } catch (const std::bad_alloc &) {
        refuse(file.path().text(), u"Its tags are too large for the memory."_s);
    }
}

} // namespace

const TagPicture *coverOf(const QList<TagPicture> &pictures)
{
    for (const TagPicture &picture : pictures) {
        if (picture.role == TagPicture::FrontCover)
            return &picture;
    }
    return pictures.isEmpty() ? nullptr : &pictures.front();
}

FileTags readFileTags(const QString &path)
{
    return tagsOf(SourceFile(FilePath::ofSource(path)));
}

TagWriter::TagWriter(const QString &path, const TagEdit &edit, const FileStamp &seen,
                     const RewriteOptions &options)
    : m_file(path, options), m_edit(edit), m_before(tagsOf(m_file.source()))
{
    if (!m_before.stamp.isUnchangedSince(seen))
        refuse(path, u"The file was changed meanwhile by another program."_s);
    m_again = plan(m_file.source(), edit);
    m_file.assertRoom(m_again.size);
    m_file.sum(m_again);
}

void TagWriter::build()
{
    m_file.build(m_again);
    assertAsAsked(m_before, m_edit);
}

// Read by a new reader from the copy itself: what was asked for is there, and nothing else has changed.
void TagWriter::assertAsAsked(const FileTags &before, const TagEdit &edit) const
{
    const QString path = m_file.source().path().text();
    const FileTags now = tagsOf(SourceFile(FilePath::ofSource(QString::fromUtf8(m_file.copy()))));
    TagFields wanted = before.fields;
    for (auto field = edit.fields.cbegin(); field != edit.fields.cend(); ++field) {
        if (field->isEmpty())
            wanted.remove(field.key());
        else
            wanted[field.key()] = *field;
    }
    for (auto field = wanted.cbegin(); field != wanted.cend(); ++field) {
        // Where a kind has room for one text, several values are that.
        if (now.fields.value(field.key()).join("; "_L1) != field->join("; "_L1))
            refuse(path, u"This kind of file can't hold the field %1 as it is."_s.arg(field.key()));
    }
    if (now.fields.size() != wanted.size())
        refuse(path, u"A field can't be taken out of it."_s);
    // Some kinds keep large ones elsewhere than small ones.
    const QList<TagPicture> pictures = edit.pictures.value_or(before.pictures);
    if (!std::ranges::is_permutation(now.pictures, pictures))
        refuse(path, u"This kind of file can't hold its pictures as they are."_s);
    if (soundHash(m_file.copy()) != soundHash(m_file.source().path().bytes()))
        refuse(path, u"Its sound would have changed."_s);
}

void applyPatch(const QString &path, const FilePatch &patch, const RewriteOptions &options)
{
    FileRewrite file(path, options);
    const QByteArray present = wholeHash(file.source());
    if (present == patch.hashAfter)
        return;
    if (present != patch.hashBefore)
        refuse(path, u"The file was changed since by another program."_s);
    file.build(patch);
    file.takePlace();
}

PatchState stateFor(const QString &path, const FilePatch &patch)
{
    try {
        const SourceFile file(FilePath::ofSource(path));
        const QByteArray present = wholeHash(file);
        if (present == patch.hashAfter)
            return PatchState::IsApplied;
        return present == patch.hashBefore ? PatchState::CanBeApplied : PatchState::OtherVersion;
    } catch (const dao::DaoError &) {
        return PatchState::NoFile;
    }
}

} // namespace shell
