// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"

namespace quaverly {

class Desktop;
class OptionsStore;

/** The folders of a start, each with its trailing separator. */
struct StartFolders
{
    QString program;
    /** Where a catalogue lies unless the options name another place. */
    QString defaultData;
    /** False for an installed program: the catalogue beside it is an empty one to copy. */
    bool programIsWritable = true;
};

/** The folders, and whether this user may write into the program's. */
[[nodiscard]] StartFolders startFolders(const QString &program, const QString &defaultData);

/**
 * Finds the catalogue file at the start: where DatabaseFile says, in DatabaseFolder, beside the
 * program, or wherever the user shows it.
 */
class CatalogueSearch final
{
public:
    CatalogueSearch(Catalogue &catalogue, const StartFolders &folders, Desktop &desktop, OptionsStore &store);

    /** Folder and file of the options, or those of the default place. */
    void takeStoredLocation();
    /** Leaves everything as it was when there is no file and the user shows none. */
    void locate();

private:
    [[nodiscard]] bool inDatabaseFolder();
    [[nodiscard]] bool besideProgram();
    /** An installed program gives a new user a copy of its empty catalogue. */
    [[nodiscard]] bool copyForNewUser(const QString &shipped);
    void ask();

    Catalogue &m_catalogue;
    const StartFolders &m_folders;
    Desktop &m_desktop;
    OptionsStore &m_store;
};

} // namespace quaverly
