// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <stdexcept>

namespace dao {

/** Numbers of the errors that the store and the file helpers raise. */
enum ErrorNumber {
    PathNotFound = 76,
    PathFileAccess = 75,
    PermissionDenied = 70,
    DiskFull = 61,
    FileAlreadyExists = 58,
    FileNotFound = 53,
    NoUpdateStarted = 3020,
    NoCurrentRecord = 3021,
    DuplicateKey = 3022,
    CatalogueNotFound = 3024,
    ReadOnly = 3027,
    InvalidPassword = 3031,
    NoTransaction = 3034,
    InvalidOperation = 3219,
    ObjectExists = 3012,
    CannotOpenFile = 3049,
    UnknownField = 3061,
    SyntaxError = 3075,
    SyntaxErrorInCriteria = 3077,
    UnknownTable = 3078,
    UndefinedFunction = 3085,
    FieldTooSmall = 3163,
    RecordDeleted = 3167,
    ChangedByAnother = 3197,
    Locked = 3260,
    ItemNotFound = 3265,
    UnrecognisedFormat = 3343,
    TooComplex = 3360,
    TypeMismatch = 3464,
    IndexNotFound = 3015,
    Internal = 3001,
    ObjectInvalid = 3420,
};

/** An error of the store: its number, and the sentence that a user may read. */
class DaoError : public std::runtime_error
{
public:
    DaoError(int errorNumber, QString text)
        : std::runtime_error(text.toStdString()), number(errorNumber), description(std::move(text))
    {}

    int number;
    QString description;
};

} // namespace dao
