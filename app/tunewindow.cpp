#include "tunewindow.h"
#include "ui_tunewindow.h"

#include "db.h"
#include "qmessdlg.h"
#include "qmessevent.h"

TuneWindow::TuneWindow(const QSqlDatabase &db, DatabaseTuning::Work work, QObject *receiver, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::TuneWindow>())
    , m_tuning(db.connectionName(), receiver)
    , m_work(work)
    , m_receiver(receiver)
{
    ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    ui->labelWork->setText(work == DatabaseTuning::Add ? tr("Індекси додаються…")
                                                       : tr("Індекси прибираються…"));
    connect(ui->pbCancel, &QPushButton::clicked, this, &TuneWindow::reject);
    connect(&m_tuning, &DatabaseTuning::progressed, this, &TuneWindow::showProgress);
    connect(&m_tuning, &DatabaseTuning::finished, this, &TuneWindow::close);
    m_tuning.start(work);
}

TuneWindow::~TuneWindow() = default;

TuneWindow *TuneWindow::ask(QSqlDatabase *db, QWidget *mainWindow)
{
    const auto state = tunedState(Db(db, mainWindow));
    const bool isTuned = state == TunedState::Whole;
    if (!state || !QMessDlg::confirm(mainWindow, tr("Прискорити звіти?"), tuningQuestion(isTuned),
                                     isTuned ? tr("&Прибрати індекси") : tr("&Додати індекси")))
        return nullptr;
    auto *window =
        new TuneWindow(*db, isTuned ? DatabaseTuning::Remove : DatabaseTuning::Add, mainWindow, mainWindow);
    window->show();
    return window;
}

void TuneWindow::reject()
{
    ui->pbCancel->setEnabled(false);
    ui->labelWork->setText(tr("Зупиняється…"));
    m_tuning.stop();
}

void TuneWindow::showProgress(int percent)
{
    ui->progress->setMaximum(100);
    ui->progress->setValue(percent);
}

void TuneWindow::close(DatabaseTuning::Outcome outcome)
{
    const QString result = tuningResult(m_work, outcome);
    if (!result.isEmpty())
        postMessage(m_receiver, result, QMessEvent::Information);
    done(outcome == DatabaseTuning::Done ? Accepted : Rejected);
}

QString tuningResult(DatabaseTuning::Work work, DatabaseTuning::Outcome outcome)
{
    if (outcome == DatabaseTuning::Failed)
        return {};
    if (outcome == DatabaseTuning::Stopped)
        return TuneWindow::tr("Зупинено; у базі нічого не змінено.");
    return work == DatabaseTuning::Add ? TuneWindow::tr("Індекси додано: звіти прискорено.")
                                       : TuneWindow::tr("Індекси прибрано.");
}
