#pragma once

#include "recordinput.h"

#include <QLineEdit>
#include <QTime>
#include <QVector>
#include <QWidget>

class OptionalDateEdit;
class QCheckBox;
class QLabel;
class QTimeEdit;

/// action.val: hundredths of a per cent, or a whole number of other programs.
class ActionValueEdit : public QLineEdit, public OwnInput
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

    /// What stands in it keeps its meaning: 15.00 becomes 1500 and back.
    void setPercent(bool isPercent);
    void setStored(const QString &stored) override;
    /// A null text for what cannot be read.
    QString stored() const override;
    /// Why it cannot be stored; empty when it can. What was read and not touched is not judged while it means
    /// the same.
    QString refusal(bool meansTheSame) const;

private:
    QString shown(const QString &stored) const;

    bool m_isPercent = true;
    QString m_read;
};

/// An end of a promotion: its day, and the hour of every day. What it was given and nobody has touched it
/// gives back as it was.
class ActionEndEdit : public QWidget, public OwnInput
{
    Q_OBJECT

public:
    explicit ActionEndEdit(QWidget *parent = nullptr);

    /// daily: the word before the hour; time: that of a new end; name: for those who cannot see the labels.
    void setUp(const QString &daily, const QTime &time, const QString &name);
    /// Without dates it is a zero date.
    void setDated(bool isDated);
    /// The same for the record as it was read.
    void setReadDated(bool isDated);
    /// Invalid when there is none.
    QDate day() const;
    /// Proposes a day where none is entered yet, or where the one before was proposed, too.
    void propose(const QDate &day);
    void setStored(const QString &stored) override;
    QString stored() const override;
    /// Why there is no day to store; empty when there is one, or when what was read has none.
    QString refusal() const;

signals:
    void changed();

private:
    QStringList entered() const;
    bool isUntouched() const;

    OptionalDateEdit *m_day;
    QLabel *m_daily;
    QTimeEdit *m_time;
    QTime m_newTime;
    QDate m_proposed;
    bool m_isDated = false;
    bool m_isReadDated = false;
    QString m_read;
    QStringList m_readEntered;
};

/// The days of a week as ticks. A text of other programs stays as long as no tick is touched.
class WeekDaysEdit : public QWidget, public OwnInput
{
    Q_OBJECT

public:
    explicit WeekDaysEdit(QWidget *parent = nullptr);

    void setStored(const QString &stored) override;
    QString stored() const override;

signals:
    void changed();

private:
    QString tokens() const;

    QVector<QCheckBox *> m_days;
    QLabel *m_unknown;
    QString m_read;
    QString m_readTokens;
};
