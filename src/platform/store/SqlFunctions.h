// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

struct sqlite3;

namespace dao {

/**
 * Adds the dialect's functions to a connection, each under "dao_" and its name in lower case, as
 * FunctionTable lists them. A Null argument gives a Null, but where the function is about Nulls.
 */
void registerFunctions(sqlite3 *db);

} // namespace dao
