// "Vonari - Lisäasetukset": the further settings of payments and of the address export.
#pragma once

#include <QDialog>
#include <QVector>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

class frmAsetuksetLisa : public QDialog {
    Q_OBJECT
public:
    explicit frmAsetuksetLisa(QWidget *parent = nullptr);

    bool muuttunut() const { return m_muuttunut; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void reject() override;
    void done(int result) override;

private:
    void tayta();
    void valitse(QLineEdit *kentta, const QString &otsikonLoppu, const QString &suodatin);
    void cTallenna_Click();
    void cSulje_Click();

    QCheckBox *chkSuuretSuorituksetMaksetuksi = nullptr;
    QCheckBox *chkSuorituksellaMaksetuksiJosEiLoppusummaa = nullptr;
    QLineEdit *tSuoritustiedosto = nullptr;
    QPushButton *cSuoritustiedostonValinta = nullptr;
    QLineEdit *tOsoitteidenVienti = nullptr;
    QPushButton *cOsoitetiedostonValinta = nullptr;
    // Indexed by the export format: 0 list with ";", 1 fixed columns, 2 spreadsheet.
    QVector<QRadioButton *> optOsoitemuoto;
    QPushButton *cTallenna = nullptr, *cPeru = nullptr, *cSulje = nullptr;
    bool m_muuttunut = false;
};

// Opens the further settings modally.
void AvaaLisaasetukset(QWidget *parent);
