#pragma once

#include "chainstate.h"

class Db;
class QLoadedUser;

/// What a chain that is only being set up needs for its first sale, one thing after the other.
struct NextStep
{
    /// Whether it is done.
    bool FirstSteps::*isDone;
    /// The page where it is done, and the right to do it there.
    const char *action;
    int permission;
    /// The page begins with a new record.
    bool isAdding;
    /// The rest is translated by nextStepText(): what to do, what its button says, and what the window says
    /// as long as it is the next one; empty where that says nothing.
    const char *title;
    const char *button;
    const char *words;
};
const QVector<NextStep> &nextSteps();
QString nextStepText(const char *text);

/// The columns of a statement that tells what is there, in the order of FirstSteps; without SELECT.
QString firstStepsSql();

/// Whether the user may add what a new chain lacks: others would only be sent to closed doors.
bool mayFollowNextStep(const QLoadedUser &user);
/// What the window says to a chain that still lacks something for its first sale; empty when nothing.
QString nextStep(const Db &db);
