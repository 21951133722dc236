// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace dao {

/** A salted Argon2id hash in its printable form. It keeps people out; it encrypts nothing. */
[[nodiscard]] QString passwordHash(const QString &password);
[[nodiscard]] bool passwordMatches(const QString &hash, const QString &password);

} // namespace dao
