#pragma once

#include <QString>

class Db;
class QLoadedUser;

/// Whether the user may add what a new chain lacks: others would only be sent to closed doors.
bool mayFollowNextStep(const QLoadedUser &user);
/// What a chain that is only being set up still lacks for its first sale; empty when nothing.
QString nextStep(const Db &db);
