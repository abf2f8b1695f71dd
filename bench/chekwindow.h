#pragma once

#include "act.h"
#include "qchekviewer.h"
#include "windows.h"

/// The receipts of a day in the viewer, in a window of the usual size.
class ChekWindow
{
public:
    /// They are loaded.
    ChekWindow(const Bench &bench, const QDate &day);

    /// To the painted rows.
    void load();
    int rowCount() const;
    /// From the double click to the slip.
    Cost open(int row);

private:
    Admin m_admin;
    std::unique_ptr<QChekViewer> m_viewer;
};
