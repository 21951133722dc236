// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/FileStamp.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/** Folders and the details of the files in them, by numbered property columns. */
namespace shell {

/** Attribute bits of a directory search; Directory alone is what tells a folder. */
enum class EntryKind { File, Folder, Other };

/** One name of a directory search. */
struct Entry
{
    QString name;
    EntryKind kind = EntryKind::Other;
    /** A link; the kind is that of what it leads to. */
    bool isLink = false;
};

/** A folder as the file system knows it, whatever path led there. */
struct FolderIdentity
{
    quint64 device = 0;
    quint64 inode = 0;
    auto operator<=>(const FolderIdentity &) const = default;
};

/** A mounted volume: its mount point without a trailing separator ("/" is the empty text's own). */
struct Drive
{
    QString mountPoint;
    QString label;
    quint64 bytesTotal = 0;
};

class Folder;

/** One item of a folder. Its details are read from the file when first asked for. */
class Item
{
public:
    virtual ~Item() = default;
    [[nodiscard]] virtual QString name() const = 0;
    /** True when there is a plain file of that name as this is first asked. */
    [[nodiscard]] virtual bool isFile() const = 0;
    /** What the directory tells of that file, from the same look; nothing where there is none. */
    [[nodiscard]] virtual std::optional<FileStamp> stamp() const { return {}; }
    /**
     * The text of a property column, empty when the file doesn't have it or can't be read.
     * Columns: 1 size, 2 type, 6 attributes (a "D" for a folder); of version 5: 10, 14, 16 to 22;
     * of version 6: 13 to 16, 21, 24, 26 to 28, 217, 220, 237, 251. Never throws on a damaged file.
     */
    [[nodiscard]] virtual QString detail(int column) const = 0;
    /** Why the details could not be read; empty when they could. */
    [[nodiscard]] virtual QString readFailure() const = 0;
};

/** The items of one folder, sub-folders included, in natural order. */
class Folder
{
public:
    virtual ~Folder() = default;
    [[nodiscard]] virtual qsizetype count() const = 0;
    /** Valid until the folder goes; asking for items in order lets the next ones be read ahead. */
    [[nodiscard]] virtual const Item &item(qsizetype index) = 0;
};

/** The platform's folder object. One per run; used from one thread. */
class Shell
{
public:
    virtual ~Shell() = default;

    /** The folder's items, or null when it is none, can't be read, or belongs to a pseudo file system. */
    [[nodiscard]] virtual std::unique_ptr<Folder> NameSpace(const QString &folder) = 0;

    /** Those files of a folder alone, without a look at it; a name that isn't there is an item all the same.
     */
    [[nodiscard]] virtual std::unique_ptr<Folder> filesOf(const QString & /*folder*/,
                                                          const QStringList & /*names*/)
    {
        return nullptr;
    }

    /**
     * The plain directory search: all names of a folder but "." and "..", in no order; empty when it
     * can't be read. Names that are not valid UTF-8 are left out and counted in @p refused.
     * Links are followed for the kind. No file is opened.
     */
    [[nodiscard]] virtual std::vector<Entry> search(const QString &folder,
                                                    QStringList *refused = nullptr) = 0;

    /** See ListingsKept. */
    virtual void keepListings(bool) {}

    /** Nothing when the folder is gone, or is on a pseudo file system (proc, sysfs, devtmpfs ...). */
    [[nodiscard]] virtual std::optional<FolderIdentity> identity(const QString &folder) = 0;

    /** The mounted volumes that can hold music, sorted by mount point. */
    [[nodiscard]] virtual std::vector<Drive> drives() = 0;

    /** First digit of the system's version that decides which columns are read. */
    [[nodiscard]] virtual int versionMajor() const = 0;
    [[nodiscard]] virtual double version() const = 0;
    /** True when the shell shows names without their extensions. */
    [[nodiscard]] virtual bool hideFileExt() const = 0;
};

/**
 * For the length of a walk, which calls search() for its folders and later NameSpace() in the same order:
 * a folder that hasn't changed in between is not listed again, and the details of the next folders' files
 * may be read ahead.
 */
class ListingsKept final
{
public:
    explicit ListingsKept(Shell &shell) : m_shell(shell) { m_shell.keepListings(true); }
    ~ListingsKept() { m_shell.keepListings(false); }
    ListingsKept(const ListingsKept &) = delete;
    ListingsKept &operator=(const ListingsKept &) = delete;

private:
    Shell &m_shell;
};

/** What a run may set otherwise; the defaults are what this platform reports. */
struct ShellTraits
{
    double version = 6.2;
    bool hideFileExt = false;
    /** Threads that read details ahead; 0 reads each file when it is asked for. */
    int readAheadThreads = 1;
    /** Nanoseconds that a folder must have been at rest for its listing to be kept: some file systems keep
     * times by two seconds. */
    qint64 timeGrain = 3'000'000'000;
};

[[nodiscard]] std::unique_ptr<Shell> makeShell(const ShellTraits &traits = {});

} // namespace shell
