// The information window: the program's name, version, the club it is registered to, a link.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

class frmAboutNorvik : public QDialog {
    Q_OBJECT
public:
    explicit frmAboutNorvik(QWidget *parent = nullptr);

    QLabel *lblProductName;
    QLabel *lblVersion;
    QLabel *lblRegName;
    QLabel *lblLinkki;
    QPushButton *cSulje;
};
