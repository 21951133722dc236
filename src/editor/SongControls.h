// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/EditorFields.h"

#include <functional>

class QComboBox;
class QPlainTextEdit;
class QWidget;

namespace quaverly {

/** The controls of the editor that show fields of the song, each under its field's name. */
class SongControls final
{
public:
    /** The screen's controls bear the names that editedFields() gives them. @p changed is called at each
     * change of a text, by the user or by setText(). */
    SongControls(QWidget &screen, std::function<void()> changed);

    [[nodiscard]] QString text(const QString &field) const;
    [[nodiscard]] SongTexts texts() const;
    /** As if it had been typed. */
    void setText(const QString &field, const QString &text);

    /** A record's texts, which are loaded() from then on. */
    void show(const SongTexts &record);
    /** No record: all fields empty but the labels, which are data that the next record starts with. */
    void clear();
    /** The record's texts as they were shown first; none for a new record without a template. */
    [[nodiscard]] const SongTexts &loaded() const { return m_loaded; }

private:
    void limitLengths();
    void fillLists();
    void watch();

    std::function<void()> m_changed;
    QMap<QString, QWidget *> m_controls;
    QComboBox &m_genre;
    QComboBox &m_rating;
    QPlainTextEdit &m_notes;
    SongTexts m_loaded;
};

} // namespace quaverly
