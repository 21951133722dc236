// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/NoteDrafts.h"

#include "platform/richtext/RichText.h"
#include "platform/text/Text.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QTextDocument>

#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr qsizetype NameDigits = 16;
constexpr qsizetype ShownOfDraft = 100;

bool write(const QString &path, const QByteArray &bytes)
{
    // Unbuffered: committing would not notice what its buffer could not write.
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(bytes) == bytes.size() &&
           file.commit();
}

QJsonObject read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

} // namespace

NoteDrafts::NoteDrafts(QStringList folders, QString catalogue)
    : m_folders(std::move(folders)), m_catalogue(std::move(catalogue))
{}

QString NoteDrafts::nameOf(const QString &title, NoteDraft::Kind kind) const
{
    const QString key = QFileInfo(m_catalogue).fileName() + u'\n' + title.toLower();
    const QByteArray sum = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha1).toHex();
    return u"note-draft-"_s + QString::fromLatin1(sum.first(NameDigits)) +
           (kind == NoteDraft::Kind::Typed ? u".json"_s : u"-before.json"_s);
}

QString NoteDrafts::keep(const QString &title, NoteDraft::Kind kind, const QString &rtf) const
{
    const QByteArray bytes =
        QJsonDocument({{u"catalogue"_s, m_catalogue},
                       {u"title"_s, title},
                       {u"before"_s, kind == NoteDraft::Kind::Before},
                       {u"kept"_s, QDateTime::currentDateTimeUtc().toString(Qt::ISODate)},
                       {u"rtf"_s, rtf}})
            .toJson();
    const QString name = nameOf(title, kind);
    QString kept;
    // An older text must not lie in another folder beside the newer one.
    for (const QString &folder : m_folders) {
        if (kept.isEmpty() && write(folder + name, bytes))
            kept = folder + name;
        else if (!kept.isEmpty())
            QFile::remove(folder + name);
    }
    return kept;
}

void NoteDrafts::forget(const QString &title) const
{
    for (const QString &folder : m_folders) {
        QFile::remove(folder + nameOf(title, NoteDraft::Kind::Typed));
        QFile::remove(folder + nameOf(title, NoteDraft::Kind::Before));
    }
}

void NoteDrafts::forget(const NoteDraft &draft) const
{
    QFile::remove(draft.path);
}

QList<NoteDraft> NoteDrafts::all() const
{
    QList<NoteDraft> found;
    const QFileInfo own(m_catalogue);
    for (const QString &folder : m_folders) {
        for (const QFileInfo &file : QDir(folder).entryInfoList({u"note-draft-*.json"_s}, QDir::Files)) {
            const QJsonObject object = read(file.filePath());
            const QString catalogue = object[u"catalogue"_s].toString();
            const bool movedAlong =
                file.path() == own.path() && QFileInfo(catalogue).fileName() == own.fileName();
            if (catalogue != m_catalogue && !movedAlong)
                continue;
            found.append({object[u"title"_s].toString(),
                          object[u"before"_s].toBool() ? NoteDraft::Kind::Before : NoteDraft::Kind::Typed,
                          object[u"rtf"_s].toString(),
                          QDateTime::fromString(object[u"kept"_s].toString(), Qt::ISODate), file.filePath()});
        }
    }
    return found;
}

QString questionAbout(const NoteDraft &draft)
{
    QTextDocument text;
    static_cast<void>(richtext::readRtfText(draft.rtf, text));
    QString beginning = text.toPlainText().simplified();
    if (beginning.size() > ShownOfDraft)
        beginning = beginning.first(ShownOfDraft) + u'…';
    const QString kept =
        draft.kind == NoteDraft::Kind::Typed
            ? u"On %1 the note \"%2\" could not be saved.  What was typed was kept:"_s
            : u"On %1 the note \"%2\" could not be put back as it was.  Its text from before was kept:"_s;
    return kept.arg(shortDate(draft.kept.toLocalTime()), draft.title) + u"\n\n"_s + beginning +
           u"\n\nYes puts it into the note, where Cancel takes it back.  No deletes it.\n\nUse this text?"_s;
}

} // namespace quaverly
