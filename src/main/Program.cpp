// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/Program.h"

#include "catalogue/CommandLine.h"
#include "catalogue/ScreenFont.h"
#include "catalogue/StartUp.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "main/NameList.h"
#include "platform/options/Folders.h"
#include "platform/options/SingleInstance.h"
#include "player/TemporaryList.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

StartContext startContext(const QString &commandLine, const shell::Shell &shell, bool tablet)
{
    StartContext context;
    context.commandLine = commandLine;
    const QString program = EnsureBackslash(QCoreApplication::applicationDirPath());
    context.folders = startFolders(program, folders::data());
    // A build folder is swept away one day: no user's catalogue may live there.
    if (QFileInfo::exists(program + u"../CMakeCache.txt"_s))
        context.folders.programIsWritable = false;
    context.systemVersion = shell.version();
    context.mousePresent = !tablet;
    context.tabletPc = tablet;
    return context;
}

} // namespace

Program::Program(Desktop &desktop, OptionsStore &store, SingleInstance &instance,
                 const QStringList &arguments, std::function<void()> quit, media::MediaOptions sound)
    : m_session(desktop, store, std::move(sound)), m_instance(instance), m_quit(std::move(quit)),
      m_catalogueCommands(desktop, m_session.catalogue(), m_session.engine(), store, catalogueHooks()),
      m_playForms(playFormParts())
{
    const StartHooks hooks{.showNameList = [this] { showNameList(); },
                           .playFile = [this, several = severalMusicFiles(arguments)](
                                           const QString &file) { playAlone(file, several); }};
    m_startUp = std::make_unique<StartUp>(
        m_session.catalogue(), m_session.options(), m_session.engine(), desktop, store, instance,
        startContext(arguments.join(u' '), m_session.shell(), desktop.isTabletWithoutMouse()), hooks);
    QObject::connect(&instance, &SingleInstance::raiseRequested, &instance, [this] { raiseScreen(); });
}

Program::~Program()
{
    QObject::disconnect(&m_instance, &SingleInstance::raiseRequested, nullptr, nullptr);
    m_nameList.reset();
}

bool Program::start()
{
    // Boxes may come before the main screen.
    m_startUp->readOptions();
    applyScreenFont(m_session.options().ScreenFont);
    return m_startUp->run() == StartResult::Running || m_playForms.form() != nullptr;
}

void Program::playAlone(const QString &file, const QStringList &several)
{
    if (several.isEmpty()) {
        m_playForms.play(playerOnlyRequest(file));
        return;
    }
    // The list lies in the catalogue's folder, which there need not be yet when none is opened.
    QString &folder = m_session.catalogue().DatabaseFolder;
    folder = folders::runtime();
    guarded(m_session.desktop(), QString::fromUtf16(ProductName), [&] {
        PlayRequest request = playerOnlyRequest(several, temporaryList(folder));
        writeTemporaryList(folder, request.songs.urls());
        m_playForms.play(std::move(request));
    });
}

PlayFormParts Program::playFormParts()
{
    return {.services = m_session.services(),
            .state = m_session.player(),
            .displayed = m_session.displayedSet().Data1(),
            .makeMediaPlayer = [this] { return m_session.media().makeMediaPlayer(); },
            .isLastScreen = [this] { return m_nameList == nullptr; },
            .endProgram = [this] { m_quit(); },
            .random = [] { return QRandomGenerator::global()->generateDouble(); }};
}

CatalogueHooks Program::catalogueHooks()
{
    return {.showAll = [this] { m_nameList->ShowAllMenu_Click(); },
            .openScreens = [this] { return m_nameList->openScreens(); },
            .unloadPlayForm = [this] { m_playForms.unload(); },
            .unloadMainScreen = [this](bool compacting) { unloadNameList(compacting); },
            .forgetPlayLists =
                [this] {
                    m_session.player().CurrentPlayListName.clear();
                    m_session.player().PlayerPlayList.clear();
                },
            .startUp = [this] { return m_startUp->run() == StartResult::Running; },
            .endProcess = [this] { m_quit(); }};
}

void Program::showNameList()
{
    // Before any control of it is there: until the event loop runs, only new ones take the font.
    applyScreenFont(m_session.options().ScreenFont);
    auto screen = std::make_unique<NameList>(m_session, m_catalogueCommands, m_playForms,
                                             [this] { nameList_Unloaded(); });
    screen->show();
    m_nameList = std::move(screen);
}

// The command runs in a handler of the screen: its deletion waits for that to end.
void Program::unloadNameList(bool compacting)
{
    m_compactingCatalogue = compacting;
    m_nameList->close();
    m_compactingCatalogue = false;
    m_nameList.release()->deleteLater();
}

void Program::nameList_Unloaded()
{
    if (!m_session.shutDown().endsProcess(m_compactingCatalogue))
        return;
    m_playForms.unload();
    // What is told from here on is no longer about the list, which is empty by now.
    m_nameList->hide();
    guarded(m_session.desktop(), QString::fromUtf16(ProductName),
            [this] { m_session.shutDown().closeCatalogue(); }, {{}, Icon::Exclamation});
    m_quit();
}

void Program::raiseScreen()
{
    if (m_nameList)
        m_nameList->raiseScreen();
    else if (m_playForms.form() != nullptr)
        m_playForms.form()->raise();
}

} // namespace quaverly
