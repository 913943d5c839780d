// Nimihaku: which member is meant, by any part of the surname and the first name.
//
// The member window's name search (cNimiHaku, F9) uses it as the basic search (frmHaku.h):
// TallennaKesken; with bSiirtoKesken set, const qint64 id = frmNimiHaku::hae(this); if id is not
// 0, FindFirst "jrID = id" with the bookmark kept, and on no match the message
// "Jäsentä ei löydy." and the bookmark back; bSiirtoKesken cleared. The result is also left in
// the global HaettuJasenID (members/Jasenhaku.h).
#pragma once

#include <QDialog>
#include <memory>

class HakuMalli;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;

namespace db {
class Database;
}

class frmNimiHaku : public QDialog {
    Q_OBJECT
public:
    // Shows the dialog modally and returns HaettuJasenID: the chosen member's jrID, 0 when none
    // was chosen, the user cancelled, or the database could not be opened (after its message).
    static qint64 hae(QWidget *parent);

    explicit frmNimiHaku(QWidget *parent = nullptr);
    ~frmNimiHaku() override;
    // The database check and the data source. False after the message when the dialog cannot
    // be used.
    bool lataa();

    QLineEdit *tSukunimi, *tEtunimi;
    QPushButton *cSearch, *cOpen, *cUndo;
    QListView *lstFoundJR;
    QLabel *lblSearchMessage;

protected:
    bool eventFilter(QObject *kohde, QEvent *e) override;

private:
    void etsi();
    void avaa();
    void peru();

    std::unique_ptr<db::Database> m_db;
    HakuMalli *m_loydetyt;
};
