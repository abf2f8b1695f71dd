#pragma once

#include <QScrollArea>

class QBoxLayout;
class QLabel;

/// The text of a question: wrapped, plain, and scrolled when the screen is too low for it.
class MessageText : public QScrollArea
{
    Q_OBJECT

public:
    explicit MessageText(QWidget *parent = nullptr);

    void setText(const QString &text);
    /// Takes the height that the text needs at this width, as far as the screen allows.
    void fitTo(int width);

    /// Half the screen: no question is wider.
    static int greatestWidth();

private:
    QLabel *m_label;
};

/// Lays the buttons of a row beneath each other when they do not fit beside each other.
void fitButtons(QBoxLayout *row, int width);
