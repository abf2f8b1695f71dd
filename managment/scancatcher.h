#pragma once

#include "scanpace.h"

#include <QObject>
#include <QPointer>

class QLineEdit;
class QWidget;

/// Knows a scanner from a hand: at least eight digits and Enter, faster than anybody types. Wherever in its
/// area, or in a question box above it, the focus is: the field gets back what stood there before, Enter
/// decides nothing, and the code is told.
class ScanCatcher : public QObject
{
    Q_OBJECT

public:
    explicit ScanCatcher(QWidget *area);

    /// What is typed meanwhile was typed before, and counted then.
    void setDeaf(bool isDeaf) { m_isDeaf = isDeaf; }

signals:
    void scanned(const QString &code);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool covers(QWidget *focus) const;
    void begin(QWidget *focus);
    void takeBack(QWidget *focus);

    QWidget *m_area;
    ScanPace m_pace;
    QPointer<QWidget> m_field;
    QString m_textBefore;
    bool m_isDeaf = false;
};
