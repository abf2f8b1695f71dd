#include "whypriceoffer.h"

#include "qntableview.h"
#include "qqestion.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QCursor>
#include <QMenu>
#include <QShortcut>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(WhyPriceOffer)
};
} // namespace

QString whyPriceWords()
{
    return Texts::tr("Чому така ціна");
}

void addWhyPriceMenu(QNTableView *list, const std::function<void(int row)> &ask)
{
    QObject::connect(list, &QNTableView::RClicked, list, [list, ask](const QModelIndex &index) {
        if (!index.isValid())
            return;
        auto *menu = new QMenu(list);
        menu->setObjectName(QStringLiteral("menuRow"));
        menu->setAttribute(Qt::WA_DeleteOnClose);
        const QString key = QKeySequence(whyPriceKey).toString(QKeySequence::NativeText);
        // Rows that arrive meanwhile may take the place of this one.
        menu->addAction(whyPriceWords() + QLatin1Char('\t') + key, list,
                        [ask, asked = QPersistentModelIndex(index)] {
                            if (asked.isValid())
                                ask(asked.row());
                        });
        menu->popup(QCursor::pos());
    });
}

void offerWhyPrice(QWidget *page, QNTableView *list, QAbstractButton *button,
                   const std::function<void(int row)> &ask)
{
    addWhyPriceMenu(list, ask);
    const auto askCurrent = [page, list, ask] {
        const QModelIndex current = list->currentIndex();
        if (current.isValid())
            ask(current.row());
        else
            QQestion::question(page->window(), Texts::tr("Чому така ціна"),
                               Texts::tr("Спершу виберіть товар у списку."), true);
    };
    auto *shortcut = new QShortcut(whyPriceKey, page, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    shortcut->setWhatsThis(whyPriceWords());
    QObject::connect(shortcut, &QShortcut::activated, page, askCurrent);
    QObject::connect(button, &QAbstractButton::clicked, page, askCurrent);
    button->setToolTip(Texts::tr("Яка ціна товару діє в магазині й чому (%1)")
                           .arg(QKeySequence(whyPriceKey).toString(QKeySequence::NativeText)));
}
