// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"
#include "catalogue/Options.h"
#include "catalogue/Services.h"
#include "catalogue/SettingsRows.h"
#include "platform/options/OptionsStore.h"
#include "support/QtPrinters.h"

#include <QMap>
#include <QTemporaryDir>

namespace quaverly::test {

/** A song to be put into a catalogue: its name, its artist, and whatever else is set. */
class Song final
{
public:
    explicit Song(const QString &name, const QString &artist = {});
    Song &with(const QString &field, const QVariant &value);
    Song &file(const QString &pathName, const QString &fileName);
    [[nodiscard]] const QMap<QString, QVariant> &values() const { return m_values; }

private:
    QMap<QString, QVariant> m_values;
};

/** A catalogue on the shipped schema, empty and open, in a folder of its own that goes with it. */
class StoreFixture final
{
public:
    StoreFixture();
    ~StoreFixture();
    StoreFixture(const StoreFixture &) = delete;
    StoreFixture &operator=(const StoreFixture &) = delete;

    /** With its trailing separator. */
    [[nodiscard]] QString folder() const { return m_folder.path() + u'/'; }
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }

    [[nodiscard]] Catalogue &catalogue() { return m_catalogue; }
    [[nodiscard]] dao::Database &db() { return *m_catalogue.CatalogueDb; }
    [[nodiscard]] dao::DBEngine &engine() { return m_engine; }
    [[nodiscard]] SettingsRows &settings() { return m_settings; }
    [[nodiscard]] Options &options() { return m_options; }
    [[nodiscard]] OptionsStore &optionsStore() { return m_optionsStore; }
    [[nodiscard]] Services services(Desktop &desktop)
    {
        return {desktop, m_catalogue, m_options, m_optionsStore};
    }

    void open();
    void close();
    /** As after a restart of the program: what was not written is gone. */
    void reopen();

    /** The new row's key. */
    qint64 addRow(const QString &table, const QMap<QString, QVariant> &values);
    /** The new row's RecordID. */
    qint64 addSong(const Song &song) { return addRow(QStringLiteral("tblContacts"), song.values()); }
    /** The new row's CategoryNumber. */
    qint64 addCategory(const QString &name, const QList<qint64> &songs = {});
    /** The new row's ListID; its tracks carry the songs' keys only. */
    qint64 addPlayList(const QString &name, const QList<qint64> &songs = {});

    /** One field of one song. */
    [[nodiscard]] QVariant songValue(qint64 recordId, const QString &field);
    /** First field of a statement's first row. */
    [[nodiscard]] QVariant valueOf(const QString &sql);
    /** First field of all rows. */
    [[nodiscard]] QStringList column(const QString &sql);

private:
    QTemporaryDir m_folder;
    dao::DBEngine m_engine;
    Catalogue m_catalogue;
    SettingsRows m_settings;
    Options m_options;
    OptionsStore m_optionsStore;
};

} // namespace quaverly::test
