// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "history/ChangeTexts.h"

#include <QAbstractTableModel>
#include <QHash>

namespace quaverly {

/** The changes of a catalogue, the newest first: when, what, how many rows and files. */
class ChangeListModel final : public QAbstractTableModel
{
public:
    enum Column { When, What, Rows, Files, ColumnCount };

    /** @p database outlives the model. */
    explicit ChangeListModel(dao::Database &database, QObject *parent = nullptr);

    /** Reads the journal anew. @throws dao::DaoError */
    void reload();
    /** Shows only the changes whose sentence holds @p text, in any case. */
    void setFilter(const QString &text);
    [[nodiscard]] const dao::Change &change(int row) const { return m_shown[static_cast<std::size_t>(row)]; }
    /** All of them, shown or not, the newest first. */
    [[nodiscard]] const std::vector<dao::Change> &all() const { return m_all; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] QString text(const dao::Change &change, int column) const;
    [[nodiscard]] const QString &sentence(const dao::Change &change) const;

    dao::History m_history;
    ChangeTexts m_texts;
    std::vector<dao::Change> m_all;
    std::vector<dao::Change> m_shown;
    QString m_filter;
    /** Those that were asked for. */
    mutable QHash<qint64, QString> m_sentences;
};

} // namespace quaverly
