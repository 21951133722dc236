// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

namespace quaverly {

/** A note's text that could not reach the catalogue. */
struct NoteDraft
{
    enum class Kind {
        /** What was typed. */
        Typed,
        /** What the note held before changes that were to be taken back. */
        Before
    };

    QString title;
    Kind kind = Kind::Typed;
    /** As rich text. */
    QString rtf;
    QDateTime kept;
    /** Where it lies. */
    QString path;
};

/** Texts of notes in files of their own, for as long as the catalogue does not take them. */
class NoteDrafts final
{
public:
    /** @p folders are tried in turn; @p catalogue is the path of the file whose notes they are. */
    NoteDrafts(QStringList folders, QString catalogue);

    /** In place of the note's last draft of that kind. Its path, or nothing when no folder takes it. */
    QString keep(const QString &title, NoteDraft::Kind kind, const QString &rtf) const;
    /** All of a note's, or that one. */
    void forget(const QString &title) const;
    void forget(const NoteDraft &draft) const;

    /** Those of this catalogue, also when it was moved together with them. */
    [[nodiscard]] QList<NoteDraft> all() const;

private:
    [[nodiscard]] QString nameOf(const QString &title, NoteDraft::Kind kind) const;

    QStringList m_folders;
    QString m_catalogue;
};

/** Asks whether the draft is to be put into its note; shows how it begins. */
[[nodiscard]] QString questionAbout(const NoteDraft &draft);

} // namespace quaverly
