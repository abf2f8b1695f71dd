#pragma once

#include "destination.h"

#include <QStringList>
#include <QVector>

class QLoadedUser;
class RowStore;

/// What one may go to.
enum class GotoKind { Action, Shop, Register, Goods, Card, Chek, Shift };

/// Something that was found.
struct GotoHit
{
    GotoKind kind = GotoKind::Action;
    QString name;
    /// Where it is, or what tells it from others of that name.
    QString place;
    /// Nothing of its kind fits the text better: its whole name, code or number.
    bool isExact = false;
    /// Of a command of the menus only the action.
    Destination destination = {};
};

/// What is asked of the database for a text: a statement a kind.
struct GotoQuestion
{
    QVector<GotoKind> kinds;
    QStringList statements;
};

/// So many of a kind are shown; a statement asks for one more.
constexpr int mostGotoHits = 8;

/// By the rights of the user: of the kinds whose pages he may see, in his shop groups. A text may begin with
/// a kind ("чек 1205"); receipts and shifts are found by the first number, other words are of their place.
GotoQuestion gotoQuestion(const QString &text, const QLoadedUser &user);
/// The rows of the statement of that kind.
QVector<GotoHit> gotoHits(GotoKind kind, const RowStore &rows, const QLoadedUser &user);
/// The heading of a kind.
QString gotoKindName(GotoKind kind);
