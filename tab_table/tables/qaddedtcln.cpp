#include "qaddedtcln.h"
#include "ui_qaddedtcln.h"

#include "clientstatements.h"
#include "combos.h"
#include "job.h"
#include "money.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "typedinput.h"

#include <QSqlDatabase>

namespace {
const QLatin1String levelColumn("id_procent");
/// More are asked about: a scanner's code in the field of their number would be millions.
const qint64 manyCards = 100000;

RecordStatements statements()
{
    return {
        QStringLiteral("clients"),
        QStringLiteral("SELECT ") + clientColumns() +
            QStringLiteral(",clients.id_procent,clients.bonus_discount,clients.fiksed,clients.group_shop,"
                           "clients.block,clients.send FROM ") +
            clientTables() + QStringLiteral(" WHERE clients.id="),
        // Cards are created in ranges.
        QString(),
        QStringLiteral(
            "UPDATE clients SET id_procent=(SELECT id FROM procent WHERE name=:procent),"
            "bonus_discount=(SELECT id FROM discbonus WHERE name=:discbonus),fiksed=(SELECT id FROM yesno "
            "WHERE name=:fiksed),group_shop=(SELECT id FROM group_shop WHERE name=:group),name=:name,"
            "telephone=:telephone,email=:email,birthday=:birthday,block=(SELECT id FROM yesno WHERE "
            "name=:block),info=:info,send=(SELECT id FROM yesno WHERE name=:send) WHERE clients.id="),
        QStringLiteral("SELECT name FROM clients WHERE id=")};
}
} // namespace

QAddEdtCln::QAddEdtCln(QTab *tab, QSqlDatabase *db, QString *id, QObject *receiver, QWidget *parent)
    : RecordDialog(Db(db, receiver), statements(), id, parent)
    , ui(std::make_unique<Ui::QAddEdtCln>())
    , m_db(db)
    , m_receiver(receiver)
{
    Q_UNUSED(tab)
    ui->setupUi(this);
    for (QComboBox *box :
         {ui->cbProcent, ui->cbDiscBonus, ui->cbFiksed, ui->cbGroup, ui->cbBlock, ui->cbSend})
        keepNarrow(box, 20);
    for (QLineEdit *field : {ui->leName, ui->leEmail})
        field->setMinimumWidth(fontMetrics().averageCharWidth() * 30);
    connect(ui->pbOk, &QPushButton::clicked, this, &QAddEdtCln::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QAddEdtCln::btcancel);
    ui->labelProcent->hide();
    connect(ui->cbProcent, &QComboBox::currentTextChanged, this, &QAddEdtCln::showBlockedLevel);
    if (isNew())
        buildCreation();
    else
        buildEditing();
}

QAddEdtCln::~QAddEdtCln()
{
    hide();
}

void QAddEdtCln::buildCreation()
{
    limitTo(ui->leId, "^[0-9]{10}$");
    limitTo(ui->leCount, "[0-9]{1,10}");
    ui->person->hide();
    ui->pbOk->setText(tr("Створити"));
    load(inputs(), {QStringLiteral("SELECT MAX(id) AS id FROM clients")});
    setWindowTitle(tr("Створення карток клієнтів"));
}

void QAddEdtCln::buildEditing()
{
    ui->label_leId->setText(tr("Номер картки яка редагується"));
    ui->leId->setReadOnly(true);
    ui->leId->setText(id());
    for (QWidget *widget : QVector<QWidget *>{ui->leCount, ui->label_leCount})
        widget->setEnabled(false);
    load(inputs());
    setWindowTitle(tr("Редагування картки клієнта"));
}

QVector<RecordInput> QAddEdtCln::inputs() const
{
    using Form = InputForm;
    const QString yesNo = QStringLiteral("SELECT name,id FROM yesno");
    return {{ui->cbProcent, Form::Entry, "id_procent", ":procent", "procent.name", nullptr,
             QStringLiteral("SELECT name,id FROM procent WHERE block=0 ORDER BY discount")},
            {ui->cbDiscBonus, Form::Entry, "bonus_discount", ":discbonus", "discbonus.name", nullptr,
             QStringLiteral("SELECT name,id FROM discbonus")},
            {ui->cbFiksed, Form::Entry, "fiksed", ":fiksed", "yesno2.name", nullptr, yesNo},
            {ui->cbGroup, Form::Entry, "group_shop", ":group", "group_shop.name", nullptr,
             QStringLiteral("SELECT name,id FROM group_shop")},
            {ui->leName, Form::Text, "name", ":name"},
            {ui->leTelephone, Form::Text, "telephone", ":telephone"},
            {ui->leEmail, Form::Text, "email", ":email"},
            {ui->deBirthday, Form::Date, "birthday", ":birthday"},
            {ui->cbBlock, Form::Entry, "block", ":block", "yesno3.name", nullptr, yesNo},
            {ui->leInfo, Form::Text, "info", ":info"},
            {ui->cbSend, Form::Entry, "send", ":send", "yesno4.name", nullptr, yesNo}};
}

/// more: for new cards the highest code that there is.
bool QAddEdtCln::takeRows(const QVector<TextRows> &more)
{
    if (!isNew())
        return true;
    if (ui->cbProcent->count() == 0) {
        warn(tr("Немає жодної не заблокованої знижки, а кожна картка повинна мати знижку. Спершу додайте "
                "знижку у вкладці \"Знижки\"."));
        return false;
    }
    ui->leId->setText(QString::number(more.at(0).value(0).value(0).toLongLong() + 1));
    return true;
}

void QAddEdtCln::loaded()
{
    if (!isNew())
        return ui->leName->setFocus();
    ui->cbProcent->setCurrentIndex(0);
    for (QComboBox *box : {ui->cbDiscBonus, ui->cbFiksed, ui->cbBlock, ui->cbSend})
        chooseId(box, QStringLiteral("0"));
    chooseId(ui->cbGroup, QStringLiteral("1"));
    ui->leCount->setFocus();
}

/// A card keeps a level that is offered no more.
void QAddEdtCln::showField(const QString &key, const std::optional<RecordField> &value)
{
    const bool isOffered = key != levelColumn || !value || ui->cbProcent->findData(value->stored) >= 0;
    RecordDialog::showField(key, value);
    if (!isOffered) {
        m_blockedLevel = value->shown;
        stopOffering(ui->cbProcent, ui->cbProcent->currentIndex());
    }
    showBlockedLevel();
}

void QAddEdtCln::showBlockedLevel()
{
    const bool isBlocked = !m_blockedLevel.isEmpty() && ui->cbProcent->currentText() == m_blockedLevel;
    ui->labelProcent->setVisible(isBlocked);
    ui->labelProcent->setText(isBlocked ? tr("Цю знижку заблоковано. Картка має її, доки не вибрано іншої.")
                                        : QString());
    // A form gives a text of several lines less than it needs.
    ui->labelProcent->setMinimumHeight(
        isBlocked ? ui->labelProcent->heightForWidth(ui->cbProcent->sizeHint().width()) : 0);
}

QString QAddEdtCln::refusal() const
{
    if (isNew())
        return rangeRefusal();
    const QString why = ui->deBirthday->refusal();
    return why.isEmpty() ? QString() : tr("Дата народження") + QStringLiteral(": ") + why;
}

QString QAddEdtCln::rangeRefusal() const
{
    if (ui->leCount->text().toLongLong() == 0)
        return tr("Поле \"кількість карток для створення\" не може бути пустим і дорівнювати 0");
    if (ui->leId->text().toLongLong() == 0)
        return tr("Введіть початковий код картки, число від 1.");
    for (const QComboBox *box :
         {ui->cbProcent, ui->cbDiscBonus, ui->cbFiksed, ui->cbGroup, ui->cbBlock, ui->cbSend}) {
        if (box->currentText().isEmpty())
            return tr("Виберіть значення в усіх полях: нові картки отримають їх.");
    }
    return QString();
}

CardRange QAddEdtCln::range() const
{
    return {ui->leId->text().toLongLong(),  ui->leCount->text().toLongLong(), ui->cbProcent->currentText(),
            ui->cbDiscBonus->currentText(), ui->cbFiksed->currentText(),      ui->cbGroup->currentText(),
            ui->cbBlock->currentText(),     ui->cbSend->currentText()};
}

void QAddEdtCln::save()
{
    if (isNew())
        NewRecord();
    else
        UpdateRecord();
}

void QAddEdtCln::UpdateRecord()
{
    RecordDialog::save();
}

void QAddEdtCln::NewRecord()
{
    const QString why = firstRefusal();
    if (!why.isEmpty())
        return warn(why);
    if (mayCreate(range()))
        create(range());
}

bool QAddEdtCln::mayCreate(const CardRange &wanted)
{
    return wanted.count <= manyCards || QMessDlg::confirm(this, windowTitle(),
                                                          tr("Буде створено карток: %1, коди %2 – %3.")
                                                              .arg(wholeShown(wanted.count))
                                                              .arg(wanted.first)
                                                              .arg(wanted.last()),
                                                          tr("Створити"), tr("Не створювати"));
}

/// The job belongs to the receiver: it goes on, and tells its end, when this dialog is taken away.
void QAddEdtCln::create(const CardRange &wanted)
{
    ui->labelResult->clear();
    ui->progress->setRange(0, 0);
    ui->progress->show();
    beginWriting();
    m_job = new Job(
        tr("Створення карток"), m_db->connectionName(),
        [wanted](JobContext &context) { return createCards(context, wanted); }, m_receiver);
    connect(m_job, &Job::progressed, this, [this](qint64 done, qint64 of) {
        ui->progress->setFormat(tr("%1 з %2").arg(wholeShown(done), wholeShown(of)));
        // A range may be longer than a progress bar.
        ui->progress->setRange(0, 1000);
        ui->progress->setValue(static_cast<int>(of > 0 ? done * 1000 / of : 0));
    });
    connect(m_job, &Job::finished, m_job,
            [job = m_job.data(), receiver = m_receiver](const JobResult &result) {
                if (!result.value.value<CardsCreated>().isRefused)
                    postMessage(receiver, result.words, QMessEvent::Information);
                job->deleteLater();
            });
    connect(m_job, &Job::finished, this, &QAddEdtCln::takeCreated);
    m_job->start();
}

/// After a part of the cards the fields hold the rest, which OK creates.
void QAddEdtCln::takeCreated(const JobResult &result)
{
    const auto created = result.value.value<CardsCreated>();
    m_job.clear();
    endWriting();
    ui->progress->hide();
    if (result.outcome == JobResult::Done)
        return accept();
    if (created.isRefused)
        return warn(result.words);
    ui->labelResult->setText(result.words);
    if (created.count == 0)
        return;
    // The list is read again even when the rest is not wanted any more.
    takeOver({});
    const CardRange all = range();
    ui->leId->setText(QString::number(all.first + created.count));
    ui->leCount->setText(QString::number(all.count - created.count));
}

void QAddEdtCln::reject()
{
    if (m_job)
        m_job->cancel();
    else
        RecordDialog::reject();
}
