// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <vector>

namespace dao {
class Database;
}

namespace quaverly {

/** Makes these songs the ones that DisplayedSet::invalidFileView() shows. @throws dao::DaoError */
void listInvalidFiles(dao::Database &database, const std::vector<qint64> &songs);

} // namespace quaverly
