// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace quaverly {

/** Follows the displayed set, as the grid does. */
class DataListener
{
public:
    virtual ~DataListener() = default;
    /** Other rows are to come: what is being typed goes into its song now. Throws when it is refused. */
    virtual void finishTyping() {}
    /** Other rows, or another order; or none at all, when the control was closed. */
    virtual void setRebuilt() = 0;
    /** Another row is the current one, or its values changed. */
    virtual void rowChanged() = 0;
};

/** The one SQL text behind the grid, and the rows that it gave. */
class DataControl final
{
public:
    explicit DataControl(Catalogue &catalogue) : m_catalogue(catalogue) {}
    DataControl(const DataControl &) = delete;
    DataControl &operator=(const DataControl &) = delete;

    [[nodiscard]] const QString &RecordSource() const { return m_recordSource; }
    /** Takes effect at Refresh. */
    void setRecordSource(const QString &sql) { m_recordSource = sql; }

    /** Writes what is being typed into the list. Throws when it is refused, and the user was told. */
    void finishTyping();
    /**
     * Opens RecordSource anew, behind finishTyping(); the first row becomes the current one. When the store
     * refuses it, the rows shown so far stay and RecordSource is their text again. @p read is what a probe
     * read of it just now; it is used up. @throws dao::DaoError.
     */
    void Refresh(dao::ReadRows *read = nullptr);
    /** Takes the statement without opening it until somebody asks for its rows: a list that another one
     * follows at once costs nothing. Only for one that shows every song. */
    void openWhenAsked(const QString &sql);

    /** False before the first Refresh and after Close. */
    [[nodiscard]] bool isOpen() const { return m_recordset != nullptr; }
    /** The rows. Whoever moves in them directly calls notifyRowChanged() in the end. */
    [[nodiscard]] dao::Recordset &Recordset();
    /** False for a closed set too. */
    [[nodiscard]] bool hasRows() const;

    /** Null as the empty text; the empty text without a current row. */
    [[nodiscard]] QString currentText(const QString &field) const;

    /** Makes the song the current row; false, and no move, when it is not displayed. */
    bool findRecord(qint64 recordId);
    void notifyRowChanged();
    /** For whoever took rows out of the recordset. */
    void notifySetRebuilt();

    /** Lets go of the rows, as the catalogue's closing needs. */
    void Close();

    void addListener(DataListener &listener);
    void removeListener(DataListener &listener);

private:
    friend class RefreshOnce;

    Catalogue &m_catalogue;
    QString m_recordSource;
    QString m_openedSource;
    std::unique_ptr<dao::Recordset> m_recordset;
    bool m_openWhenAsked = false;
    std::vector<DataListener *> m_listeners;
    /** Within a RefreshOnce: the text opened there. */
    std::optional<QString> m_openedOnce;
    int m_onceDepth = 0;
};

/**
 * For the length of a scope in which nothing changes the songs: a text that was opened in it is not
 * opened again by the next Refresh.
 */
class RefreshOnce final
{
public:
    explicit RefreshOnce(DataControl &data);
    ~RefreshOnce();
    RefreshOnce(const RefreshOnce &) = delete;
    RefreshOnce &operator=(const RefreshOnce &) = delete;

private:
    DataControl &m_data;
};

/** Puts the current row back at the end of a scope, if it is still displayed. */
class KeepRow final
{
public:
    explicit KeepRow(DataControl &data);
    ~KeepRow();
    KeepRow(const KeepRow &) = delete;
    KeepRow &operator=(const KeepRow &) = delete;

private:
    DataControl &m_data;
    std::optional<dao::Bookmark> m_mark;
};

} // namespace quaverly
