#pragma once

#include "recordfields.h"

#include <QDialog>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QTableWidget;

/// Shows what somebody else has changed in a record while its editor was open, value by value, and asks what
/// is to become of it. Going back to the editor has the focus and is what Esc answers; keys count only after
/// the time a scanner needs.
class ChangesDialog : public QDialog
{
    Q_OBJECT

public:
    enum Answer { BackToEditor, KeepMine, TakeTheirs };

    ChangesDialog(QWidget *parent, const QVector<RecordChange> &changes);

    /// Asks. Without a conflict nobody has to choose: KeepMine saves both.
    static Answer ask(QWidget *parent, const QVector<RecordChange> &changes);

private:
    void buildTable(const QVector<RecordChange> &changes);
    void buildButtons(bool mustChoose);
    QPushButton *addButton(const QString &name, const QString &caption, Answer answer);
    void fit();

    QTableWidget *m_table;
    QLabel *m_text;
    QHBoxLayout *m_buttons;
    Answer m_answer = BackToEditor;
};
