#pragma once

#include "windows.h"

#include "qtabclients.h"

/// The clients tab with "Всі записи" ticked, and all cards in it.
class CardsWindow : public TabWindow<QTabClients>
{
public:
    explicit CardsWindow(const Bench &bench);

    /// Those of the client in whose name the text stands.
    void searchPerson(const QString &name);
};
