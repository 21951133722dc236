// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "YesDesktop.h"
#include "catalogue/CatalogueCommands.h"
#include "catalogue/CatalogueSchema.h"
#include "catalogue/Options.h"
#include "catalogue/SettingsRows.h"
#include "catalogue/StartUp.h"
#include "desktop/Desktop.h"
#include "editor/EditorState.h"
#include "editor/SongSave.h"
#include "history/ChangeWalk.h"
#include "lists/PlayListStore.h"
#include "platform/options/OptionsStore.h"
#include "platform/options/SingleInstance.h"
#include "songlist/DisplayedSet.h"

#include <map>
#include <random>

namespace bench {

/** What a catalogue says about its songs and lists, as far as the acts change it. */
struct State
{
    struct Song
    {
        QString path;
        QString code;
        bool operator==(const Song &) const = default;
    };
    std::map<qint64, Song> songs;
    /** The songs of each list, in their order. */
    std::map<qint64, QList<qint64>> lists;

    bool operator==(const State &) const = default;
    /** For the journal, and to be told. */
    [[nodiscard]] QString text() const;
};

/** The program without its screens, on the catalogue of a folder. */
class Program final
{
public:
    explicit Program(const QString &folder);
    ~Program();
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    [[nodiscard]] bool start();
    [[nodiscard]] State state();

    YesDesktop desktop;
    dao::DBEngine engine{quaverly::catalogueSchema()};
    quaverly::Catalogue catalogue;
    quaverly::Options options;
    quaverly::OptionsStore store;
    quaverly::SingleInstance instance;
    quaverly::SettingsRows settings{catalogue};
    quaverly::DisplayedSet set{catalogue, settings, desktop};
    quaverly::EditorState editor;
    quaverly::PlayListStore lists{catalogue};
    quaverly::StartUp startUp;
    quaverly::CatalogueCommands commands;

private:
    [[nodiscard]] quaverly::CatalogueHooks hooks();
    void leave();
};

/** Acts on a program until its process is killed. Before each, the journal gets what may be found then. */
class Acts final
{
public:
    Acts(Program &program, QStringList folders, QString journal, quint32 seed);

    static constexpr int Kinds = 8;
    static QString nameOf(int kind);
    void act(int kind);
    /** Any of them, for ever. */
    [[noreturn]] void goOn();

private:
    void saveRenamed();
    void reorder();
    void restore();
    void compact();
    void edit();
    void changeList();
    void takeBack();
    void makeAgain();
    void walk(const QString &act, const State &after, quaverly::WalkDirection direction);
    /** What the act left in the history. */
    void noteChange(const State &before);
    [[nodiscard]] qint64 newestChange();
    void expect(const QString &act, const QList<State> &allowed);
    [[nodiscard]] bool save(quaverly::SongSave &save, const QString &path, const QString &code,
                            const QString &id);
    void editOne(qint64 song, const QString &code);
    [[nodiscard]] QList<qint64> keysOf(qint64 list);
    [[nodiscard]] quaverly::Track trackOf(qint64 song);
    [[nodiscard]] qint64 anySong();
    [[nodiscard]] qint64 anyList();
    [[nodiscard]] int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(m_random); }
    [[nodiscard]] QString freshCode() { return QString::number(m_random() % 1'000'000); }

    Program &m_program;
    QStringList m_folders;
    QString m_journal;
    std::mt19937 m_random;
    State m_state;
    /** The states that the changes of this life went from, and those that were taken back went to. */
    QList<State> m_past;
    QList<State> m_future;
    qint64 m_newest = 0;
};

/** What the journal of a process that was killed says: its act, and the states that may be found. */
struct Journal
{
    QString act;
    QStringList allowed;
};
[[nodiscard]] Journal readJournal(const QString &path);

} // namespace bench
