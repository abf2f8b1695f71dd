#pragma once

#include <QString>

class Db;
class QLoadedUser;

/// What a chain that is only being set up still lacks for its first sale, for a user who may add it; empty
/// when nothing.
QString nextStep(const Db &db, const QLoadedUser &user);
