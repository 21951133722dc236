// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Ast.h"

namespace dao {

/** Reads exactly one statement. @throws 3075 with the place, 3360 when it is too long or too deep. */
[[nodiscard]] ast::Statement parseStatement(const QString &sql);

/** Reads a condition, as FindFirst takes it. @throws 3077 with the place. */
[[nodiscard]] ast::ExprPtr parseCriteria(const QString &criteria);

} // namespace dao
