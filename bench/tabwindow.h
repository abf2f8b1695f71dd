#pragma once

#include "bench.h"
#include "qloadeduser.h"

#include <QEventLoop>
#include <memory>

/// A table tab in a window of the usual size, as its user sees it.
template<typename Tab>
class TabWindow
{
public:
    /// Its first rows are painted.
    explicit TabWindow(const Bench &bench) : m_user(nullptr, nullptr)
    {
        m_user.loadpermis(bench.connection, QStringLiteral("admin"), QString());
        m_tab = std::make_unique<Tab>(bench.connection, &m_user, nullptr, nullptr, nullptr);
        m_tab->resize(1400, 900);
        m_tab->show();
        awaitRows();
    }

    /// To the painted rows.
    void search(const QString &text)
    {
        m_tab->seerch(text);
        awaitRows();
    }
    void awaitRows()
    {
        QEventLoop loop;
        QObject::connect(m_tab.get(), &Tab::loaded, &loop, &QEventLoop::quit);
        loop.exec();
        m_tab->grab();
    }
    void close() { m_tab.reset(); }
    Tab *tab() const { return m_tab.get(); }

private:
    QLoadedUser m_user;
    std::unique_ptr<Tab> m_tab;
};
