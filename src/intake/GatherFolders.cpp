// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/GatherFolders.h"

#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "platform/shell/Shell.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <deque>
#include <set>

namespace quaverly {

namespace {

class FolderWalk final
{
public:
    FolderWalk(shell::Shell &shell, Desktop &desktop, const bool &cancelled, GatheredFolders &result)
        : m_shell(shell), m_desktop(desktop), m_cancelled(cancelled), m_result(result)
    {}

    void walk(const QString &start)
    {
        m_result.folders.append(start);
        if (const auto identity = m_shell.identity(start)) {
            m_seen.insert(*identity);
            m_queue.push_back(start);
        }
        while (!m_cancelled && (!m_queue.empty() || !m_links.empty()))
            visit(takeNext());
    }

private:
    struct Below
    {
        QString path;
        bool isLink;
    };

    /** Links wait until no folder is left, so that a folder within the tree goes by its own path. */
    QString takeNext()
    {
        if (!m_queue.empty()) {
            QString folder = m_queue.front();
            m_queue.pop_front();
            return folder;
        }
        QString link = m_links.front();
        m_links.pop_front();
        return enter(link) ? link : QString();
    }

    void visit(const QString &folder)
    {
        if (folder.isEmpty())
            return;
        QStringList refused;
        std::vector<Below> below;
        for (const shell::Entry &entry : m_shell.search(folder, &refused)) {
            if (entry.kind == shell::EntryKind::Folder)
                below.push_back({folder + entry.name + PathSeparator, entry.isLink});
            else if (entry.kind == shell::EntryKind::File)
                ++m_result.plainFiles;
            if (m_cancelled)
                return;
            if (m_desktop.inputWaiting())
                m_desktop.letEventsRun();
        }
        for (const QString &name : refused)
            m_result.refused.append(folder + name);
        // The order that a directory search happens to have would make runs differ.
        std::sort(below.begin(), below.end(), [](const Below &a, const Below &b) { return a.path < b.path; });
        for (const Below &found : below)
            addBelow(found);
    }

    void addBelow(const Below &found)
    {
        if (found.isLink)
            m_links.push_back(found.path);
        else if (enter(found.path))
            m_queue.push_back(found.path);
    }

    bool enter(const QString &path)
    {
        const auto identity = m_shell.identity(path);
        // A pseudo file system has none either, but can be looked at.
        if (!identity && !FolderExists(path))
            m_result.unreadable.append(path);
        if (!identity || !m_seen.insert(*identity).second)
            return false;
        m_result.folders.append(path);
        return true;
    }

    shell::Shell &m_shell;
    Desktop &m_desktop;
    const bool &m_cancelled;
    GatheredFolders &m_result;
    std::deque<QString> m_queue;
    std::deque<QString> m_links;
    std::set<shell::FolderIdentity> m_seen;
};

} // namespace

void GatherFolders(shell::Shell &shell, Desktop &desktop, const bool &CancelScan, const QString &Start,
                   GatheredFolders &Result)
{
    FolderWalk(shell, desktop, CancelScan, Result).walk(EnsureBackslash(Start));
}

} // namespace quaverly
