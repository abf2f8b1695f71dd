#include "qchekviewer.h"
#include "ui_qchekviewer.h"

#include "cheklist.h"
#include "listloader.h"
#include "money.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qrowmodel.h"
#include "qtab.h"
#include "slipprint.h"
#include "slipreader.h"

#include <QFileDialog>
#include <QGuiApplication>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QShortcut>

namespace {
const QRgb mismatchColour = 0xffff3333;

quint64 keyOf(const QString &kass, const QString &chek)
{
    return quint64(kass.toUInt()) << 32U | chek.toUInt();
}

/// The wait cursor for as long as it lives.
class Waiting
{
public:
    Waiting() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Waiting() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY(Waiting)
};
} // namespace

QChekViewer::QChekViewer(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent)
    : ReportWindow(db, user, mainWindow, parent), ui(std::make_unique<Ui::QChekViewer>())
{
    ui->setupUi(this);
    takeList(ui->tvCheks, ui->pbLoad, ui->pbStop);
    InsertColumnsListCheks();
    ui->splitter->setStretchFactor(0, 7);
    ui->splitter->setStretchFactor(1, 3);
    fillGroups();
    connectWidgets();
}

QChekViewer::~QChekViewer() = default;

void QChekViewer::InsertColumnsListCheks()
{
    setColumns(ChekList::columns(), {QStringLiteral("00000"), QStringLiteral("000000"), tr("переміщення"),
                                     QStringLiteral("0 000 000.00"), QStringLiteral("01-01-15/12:12:00")});
}

void QChekViewer::connectWidgets()
{
    connect(ui->place, &PlaceSelector::groupChanged, this, &QChekViewer::GroupChanged);
    connect(ui->place, &PlaceSelector::shopChanged, this, &QChekViewer::ShopChanged);
    connect(ui->pbLoad, &QPushButton::clicked, this, &QChekViewer::load);
    connect(ui->tvCheks, &QAbstractItemView::doubleClicked, this, &QChekViewer::dclicktable);
    connect(ui->chCheckSums, &QCheckBox::toggled, this, &QChekViewer::checkSums);
    connect(ui->pbPrint, &QPushButton::clicked, this, &QChekViewer::printSlip);
    connect(ui->pbPdf, &QPushButton::clicked, this, &QChekViewer::savePdf);
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *open = new QShortcut(QKeySequence(key), ui->tvCheks, nullptr, nullptr, Qt::WidgetShortcut);
        connect(open, &QShortcut::activated, this, [this] { dclicktable(ui->tvCheks->currentIndex()); });
    }
}

void QChekViewer::fillGroups()
{
    ui->place->refillGroups(db(), QStringLiteral("SELECT name,id FROM group_shop WHERE") +
                                      QTab::GetStrLstGroupFromPermis(user(), QStringLiteral("id"), true));
    GroupChanged(ui->place->groupName());
}

void QChekViewer::GroupChanged(const QString &group)
{
    ui->place->refillShops(db(),
                           QStringLiteral("SELECT address FROM shops WHERE (group_shop IN (SELECT id FROM "
                                          "group_shop WHERE name=:name) or group_shop=1) AND block=0"),
                           {{QStringLiteral(":name"), group}});
}

void QChekViewer::ShopChanged(const QString &shop)
{
    // Under the name that the log has for it everywhere.
    postTrace(mainWindow(), QStringLiteral("QCashDrive::ShopChanged(QString str)"));
    ui->place->refillRegisters(db(),
                               QStringLiteral("SELECT advertising_str FROM kassa WHERE id_shop=(SELECT id "
                                              "FROM shops WHERE address=:name) AND block=0"),
                               {{QStringLiteral(":name"), shop}});
}

void QChekViewer::showid(bool byNumber)
{
    ui->range->setByNumber(byNumber);
}

void QChekViewer::showRange(uint id_shop, uint id_kass, const QString &zFrom, const QString &zTo)
{
    showPlace(id_shop, id_kass);
    showid(true);
    ui->range->setNumbers(QString::number(zFrom.toUInt()), QString::number(zTo.toUInt()));
    load();
}

void QChekViewer::showPlace(uint id_shop, uint id_kass)
{
    QString shop;
    QString kass;
    uint group = 0;
    auto row = db().run(QStringLiteral("SELECT address,group_shop FROM shops WHERE id=%1").arg(id_shop));
    if (row && row->next()) {
        shop = toText(row->value(0));
        group = row->value(1).toUInt();
        kass = db().firstText(QStringLiteral("SELECT advertising_str FROM kassa WHERE id=%1").arg(id_kass))
                   .value_or(QString());
    }
    if (!ui->place->chooseGroup(group))
        ui->place->chooseGroup(0);
    ui->place->showShop(shop);
    ui->place->showRegister(kass);
}

ChekFilter QChekViewer::filter() const
{
    const PlaceSelector &place = *ui->place;
    const RangeSelector &range = *ui->range;
    return {place.narrowest(),  place.groupName(), place.shopName(), place.registerName(),
            range.isByNumber(), range.from(),      range.to()};
}

void QChekViewer::load()
{
    if (refuse(ui->range->refusal()))
        return;
    m_asked = filter();
    m_askedHeading = QStringList{windowTitle(), ui->place->description(), ui->range->description()};
    loadList(chekListSql(m_asked));
}

RowStore QChekViewer::arranged(RowStore &&found)
{
    ChekList list = ChekList::from(found);
    m_sum = list.sum;
    return std::move(list.rows);
}

void QChekViewer::rowsShown()
{
    m_listed = m_asked;
    m_heading = m_askedHeading;
    ui->labelSum->setText(totals().constFirst());
    m_mismatches.clear();
    checkSums(ui->chCheckSums->isChecked());
}

QStringList QChekViewer::totals() const
{
    return {tr("Сума по чеках") + QStringLiteral(": ") + moneyShown(m_sum)};
}

void QChekViewer::checkSums(bool check)
{
    if (m_checker != nullptr)
        m_checker->cancel();
    colourMismatches(QColor());
    m_mismatches.clear();
    ui->labelCheck->clear();
    if (!check || model()->rowCount() == 0)
        return;
    if (m_checker == nullptr) {
        m_checker = new ListLoader(connection()->connectionName(), mainWindow(), this);
        connect(m_checker, &ListLoader::found, this, &QChekViewer::showChecked);
    }
    ui->labelCheck->setText(tr("Перевірка сум…"));
    m_checker->load(chekMismatchSql(m_listed), QString());
}

void QChekViewer::showChecked(const std::shared_ptr<FoundRows> &found)
{
    if (found->error.isEmpty()) {
        for (int row = 0; row < found->rows.rowCount(); ++row)
            m_mismatches.insert(
                keyOf(asNumber.plain(found->rows.cell(row, 0)), asNumber.plain(found->rows.cell(row, 1))));
        colourMismatches(QColor(mismatchColour));
        ui->labelCheck->setText(m_mismatches.isEmpty()
                                    ? tr("Суми збігаються.")
                                    : tr("Суми не збігаються, чеків: %1").arg(m_mismatches.size()));
    } else {
        postMessage(mainWindow(), tr("Помилка запиту:") + QLatin1Char('\n') + found->error);
        ui->labelCheck->setText(tr("Суми не перевірено."));
    }
    emit checked();
}

void QChekViewer::colourMismatches(const QColor &colour)
{
    for (int row = 0; row < model()->rowCount() && !m_mismatches.isEmpty(); ++row) {
        const QString kass = model()->stored(row, ChekList::Register);
        if (m_mismatches.contains(keyOf(kass, model()->stored(row, ChekList::Number))))
            model()->setRowColour(row, colour);
    }
}

void QChekViewer::dclicktable(const QModelIndex &index)
{
    if (index.isValid())
        showChekOrZvit(model()->stored(index.row(), ChekList::Type),
                       model()->stored(index.row(), ChekList::Number),
                       model()->stored(index.row(), ChekList::Register));
}

void QChekViewer::showChekOrZvit(const QString &type, const QString &chek, const QString &kass)
{
    const Waiting waiting;
    const auto document = readSlip(db(), type.toInt(), chek.toUInt(), kass.toUInt());
    if (!document)
        return;
    m_slip = document->html();
    ui->tbSlip->setHtml(m_slip);
    ui->pbPrint->setEnabled(true);
    ui->pbPdf->setEnabled(true);
}

void QChekViewer::printSlip()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintPreviewDialog preview(&printer, this);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter *paper) { ::printSlip(m_slip, paper); });
    preview.exec();
}

void QChekViewer::savePdf()
{
    QFileDialog dialog(this, tr("Зберегти PDF"), QString(), QStringLiteral("PDF (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString path = dialog.selectedFiles().value(0);
    if (!saveSlipPdf(m_slip, path))
        refuse(tr("Не вдалося записати файл %1.").arg(path));
}
