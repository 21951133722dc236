// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueSearch.h"
#include "catalogue/CommandLine.h"
#include "catalogue/Options.h"

#include <functional>
#include <optional>

namespace quaverly {

class SingleInstance;

/** What the start is told about the machine and the process. */
struct StartContext
{
    /** Arguments as one text. */
    QString commandLine;
    StartFolders folders;
    /** Major plus minor over 100, such as 6.02. */
    double systemVersion = 6.02;
    bool mousePresent = true;
    bool tabletPc = false;
};

/** What the start hands on to the screens. */
struct StartHooks
{
    /** Builds and shows the main screen. When it throws, nothing of the screen may be left. */
    std::function<void()> showNameList;
    /** Player-only mode: shows the player with the file. */
    std::function<void(const QString &file)> playFile;
};

enum class StartResult {
    /** The main screen is up: go on to the event loop. */
    Running,
    /** The process is to end; everything that had to be said was said. */
    End,
};

/** True when the program runs from a build folder: the mouse wheel hook then stays off. */
[[nodiscard]] bool runsFromSource(const QString &programFolder);

/**
 * The start of the program. Run again, it opens the catalogue that DatabaseFile names: so do the
 * commands that exchange, compact or empty the file.
 */
class StartUp final
{
public:
    StartUp(Catalogue &catalogue, Options &options, dao::DBEngine &engine, Desktop &desktop,
            OptionsStore &store, SingleInstance &instance, StartContext context, StartHooks hooks);

    [[nodiscard]] StartResult run();
    /** What the program needs to know before any box is shown; run() reads it too. */
    void readOptions();

private:
    enum class Opened { Yes, GivenUp };

    /** False when the process is to end. */
    [[nodiscard]] bool obeyCommandLine();
    void playOnly(const QString &file);
    void locateCatalogue();
    [[nodiscard]] StartResult openAndShow();
    /** True when the catalogue was repaired and the opening is to be tried again. */
    [[nodiscard]] bool repairedAfter(const dao::DaoError &error, bool &repairTried);
    /** Tells what it saved and lost. @throws dao::DaoError */
    void repair();
    [[nodiscard]] Opened openCatalogue();
    [[nodiscard]] Opened open(const QString &connect);
    /** Nothing with a wrong password. */
    [[nodiscard]] std::optional<Opened> tryOpen(const QString &connect);
    /** Opening brings an older catalogue up to date; this copies it first. False when nothing is to change.
     */
    [[nodiscard]] bool keepOlder(const QString &connect);
    void prepareCatalogue();
    /** Of songs whose file was renamed when the program ended, and whose record could not follow. */
    void tellRenamed(const QStringList &sentences);
    void tellIfSlower();
    void tellError(const dao::DaoError &error);
    void tellAlreadyRunning();

    Catalogue &m_catalogue;
    Options &m_options;
    dao::DBEngine &m_engine;
    Desktop &m_desktop;
    OptionsStore &m_store;
    SingleInstance &m_instance;
    StartContext m_context;
    StartHooks m_hooks;
    CatalogueSearch m_search;
};

} // namespace quaverly
