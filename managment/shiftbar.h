#pragma once

#include "chekwriter.h"
#include "shiftcloser.h"

#include <QWidget>
#include <functional>
#include <memory>

namespace Ui {
class ShiftBar;
}
class PlaceBar;
class QLoadedUser;
class QSqlDatabase;

/// The shift of the chosen register: what is known of it, and how it and the shop's trading period are
/// closed.
class ShiftBar : public QWidget
{
    Q_OBJECT

public:
    explicit ShiftBar(QWidget *parent = nullptr);
    ~ShiftBar() override;

    /// place: where. Failed statements are reported to the receiver under the place of the caller.
    void setUp(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, PlaceBar *place,
               const char *file = __builtin_FILE(), int line = __builtin_LINE());
    /// Asked before anything is closed: false, with the reason told, when something else has to be settled.
    void setGuard(const std::function<bool()> &mayClose) { m_mayClose = mayClose; }
    /// Asked besides before a shift is closed: what has to be done first, in the user's words; else empty.
    void setRefusal(const std::function<QString()> &refusal) { m_refusal = refusal; }
    /// why: what the buttons tell when nothing may be closed.
    void setMayClose(bool mayClose, const QString &why);

    /// Reads the shift and shows it.
    void refresh();
    /// On the last day of the period asks about that, then takes what the operator has counted and writes.
    void closeShift();
    /// The button of the period: tells when it could not be closed.
    void closePeriodAlone();
    /// False, with the reason shown, when the period cannot be closed.
    bool closePeriod();

signals:
    void told(const QString &text);
    /// These tables were written to.
    void written(const QStringList &tables);
    /// The chosen place was there for closing only: other places are offered now.
    void placesChanged();
    /// Somebody is through with a box or a button.
    void left();

private:
    Db db() const;
    ChekWriter writer() const;
    ShiftCloser closer() const;
    bool confirm(const QString &title, const QString &text, const QString &actCaption);
    void warn(const QString &title, const QString &text);
    QString shiftText() const;
    QString shiftToClose();
    bool takeOver(const OpenZ &z);
    bool offerPeriod(const QString &zNumber);
    void countAndClose(const ShiftFigures &figures);
    void afterClosing(const QString &zNumber);
    QString shiftKey(const QString &zNumber) const;

    std::unique_ptr<Ui::ShiftBar> ui;
    QSqlDatabase *m_db = nullptr;
    QLoadedUser *m_user = nullptr;
    QObject *m_receiver = nullptr;
    PlaceBar *m_place = nullptr;
    const char *m_file = nullptr;
    int m_line = 0;
    std::function<bool()> m_mayClose;
    std::function<QString()> m_refusal;
    /// The shift during which the period was closed: its closing does not ask for that again.
    QString m_closedPeriod;
};
