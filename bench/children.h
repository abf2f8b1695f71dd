#pragma once

#include "bench.h"

#include <QCoreApplication>
#include <QProcess>

/// Ctrl+C and a polite kill do not end the program at once: it ends what it has begun and tidies up.
class Interruption : public QObject
{
    Q_OBJECT

public:
    Interruption();
    bool hasCome() const { return m_hasCome; }

signals:
    void came();

private:
    bool m_hasCome = false;
};

/// What a child did.
struct ChildEnd
{
    /// It came to its end by itself and was content.
    bool isDone = false;
    QVector<Figure> figures;
};
/// Runs this program again for one benchmark, in a process of its own: it meets no memory that another one
/// has left, and one that ends early keeps neither the others from their figures nor the database from being
/// dropped. An interruption ends it, with all processes that it has started.
ChildEnd runInChild(const QString &benchmark, const QString &database, const Interruption &interruption);
/// In the child: is called first, so that the parent can end it and its processes.
void beChild();
/// In the child, last: tells the figures and ends, without taking down what the benchmark has left.
[[noreturn]] void endChild(const QVector<Figure> &figures);
