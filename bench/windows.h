#pragma once

#include "bench.h"
#include "qloadeduser.h"

#include <QEventLoop>
#include <memory>

class ReportWindow;

/// The user who may see and do everything.
class Admin
{
public:
    explicit Admin(const Bench &bench);
    QLoadedUser *user() { return &m_user; }

private:
    QLoadedUser m_user;
};

/// Shows a window of the usual size.
void showWindow(QWidget *window);

/// Loads a report, to its painted rows.
void loadReport(ReportWindow *report);

/// A table tab as its user sees it.
template<typename Tab>
class TabWindow
{
public:
    /// Its first rows are painted.
    explicit TabWindow(const Bench &bench) : m_admin(bench)
    {
        m_tab = std::make_unique<Tab>(bench.connection, m_admin.user(), nullptr, nullptr, nullptr);
        showWindow(m_tab.get());
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
    Admin m_admin;
    std::unique_ptr<Tab> m_tab;
};
