// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/Password.h"

#include "platform/store/DaoError.h"

#include <sodium.h>

#include <array>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

void startLibrary()
{
    if (sodium_init() < 0)
        throw DaoError(Internal, u"Passwords can't be used on this machine."_s);
}

} // namespace

QString passwordHash(const QString &password)
{
    startLibrary();
    const QByteArray utf8 = password.toUtf8();
    std::array<char, crypto_pwhash_STRBYTES> hash{};
    if (crypto_pwhash_str(hash.data(), utf8.constData(), static_cast<unsigned long long>(utf8.size()),
                          crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        throw DaoError(TooComplex, u"There is not enough memory to set the password."_s);
    return QString::fromLatin1(hash.data());
}

bool passwordMatches(const QString &hash, const QString &password)
{
    startLibrary();
    const QByteArray utf8 = password.toUtf8();
    return crypto_pwhash_str_verify(hash.toLatin1().constData(), utf8.constData(),
                                    static_cast<unsigned long long>(utf8.size())) == 0;
}

} // namespace dao
