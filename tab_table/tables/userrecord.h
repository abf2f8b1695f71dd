#pragma once

#include "recordstore.h"

/// How the editor of a user reads and writes. The password is not one of its columns: it is read as it is
/// stored, so that one that others have changed is told, and written behind the row.

/// A draft carries beside its values a list: the password as it was typed, empty when it stays, and the id of
/// the user who saves. A save is refused when that one may not change users any more; who may not change
/// permission groups cannot make somebody who may, nor change such a one's login, password, key or group.
RecordStatements userStatements();
/// The password as a value of the record; stored: as the database holds it.
RecordField passwordField(const QString &stored, const QString &shown);
/// That value among those of a record; nothing in a new one.
std::optional<RecordField> passwordOf(const RecordFields &fields);
