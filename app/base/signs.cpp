#include "signs.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QGuiApplication>
#include <QIconEngine>
#include <QLineEdit>
#include <QMap>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace {
/// In a square of ten by ten.
QPainterPath pathOf(Sign sign)
{
    QPainterPath path;
    const auto line = [&path](const QVector<QPointF> &points) { path.addPolygon(QPolygonF(points)); };
    switch (sign) {
    case Sign::Good:
        line({{1.5, 5.5}, {4, 8}, {8.5, 2}});
        break;
    case Sign::Partly:
        line({{5, 1}, {5, 6}});
        line({{5, 8.8}, {5, 8.9}});
        break;
    case Sign::Bad:
        line({{2, 2}, {8, 8}});
        line({{8, 2}, {2, 8}});
        break;
    case Sign::OnTheWay:
        line({{1, 5}, {9, 5}});
        line({{6, 2}, {9, 5}, {6, 8}});
        break;
    case Sign::Different:
        line({{1.5, 3.5}, {8.5, 3.5}});
        line({{1.5, 6.5}, {8.5, 6.5}});
        line({{7, 1}, {3, 9}});
        break;
    }
    return path;
}

/// Black, as the texts on the colours of states are, or as the selected text.
class SignIcon : public QIconEngine
{
public:
    explicit SignIcon(Sign sign) : m_sign(sign) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        Q_UNUSED(state)
        const QColor colour = mode == QIcon::Selected
                                  ? QGuiApplication::palette().color(QPalette::HighlightedText)
                                  : QColor(Qt::black);
        const qreal side = qMin(rect.width(), rect.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center() - QPointF(side / 2, side / 2));
        painter->scale(side / 10, side / 10);
        painter->setPen(QPen(colour, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(pathOf(m_sign));
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine *clone() const override { return new SignIcon(m_sign); }

private:
    Sign m_sign;
};
} // namespace

QString signLetter(Sign sign)
{
    static const char *const letters[] = {"✓", "!", "✗", "≠", "→"};
    return QString::fromUtf8(letters[static_cast<int>(sign)]);
}

QIcon signIcon(Sign sign)
{
    // A list of thousands of rows has few signs.
    static QMap<Sign, QIcon> icons;
    if (!icons.contains(sign))
        icons.insert(sign, QIcon(new SignIcon(sign)));
    return icons.value(sign);
}

QString withSign(Sign sign, const QString &text)
{
    return signLetter(sign) + QLatin1Char(' ') + text;
}

void showSign(QAbstractItemModel *model, const QModelIndex &cell, Sign sign, const QString &words)
{
    model->setData(cell, signIcon(sign), Qt::DecorationRole);
    model->setData(cell, signLetter(sign), signRole);
    model->setData(cell, words, Qt::ToolTipRole);
    model->setData(cell, words, Qt::AccessibleDescriptionRole);
}

void endSign(QAbstractItemModel *model, const QModelIndex &cell)
{
    for (const int role :
         {int(Qt::DecorationRole), signRole, int(Qt::ToolTipRole), int(Qt::AccessibleDescriptionRole)})
        model->setData(cell, QVariant(), role);
}

void showRefusal(QLineEdit *field, const QString &why)
{
    const QString name = QStringLiteral("refusalSign");
    auto *sign = field->findChild<QAction *>(name);
    if (sign == nullptr && why.isEmpty())
        return;
    if (sign == nullptr) {
        sign = field->addAction(signIcon(Sign::Partly), QLineEdit::TrailingPosition);
        sign->setParent(field);
        sign->setObjectName(name);
    }
    sign->setVisible(!why.isEmpty());
    sign->setToolTip(why);
    field->setAccessibleDescription(why);
}
