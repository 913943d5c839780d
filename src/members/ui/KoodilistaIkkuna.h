// The list window of a code list: the rows in a tree, one row at a time in the boxes, and the
// record window's commands. The member kinds, member groups and postal codes each derive a
// window from it with their own record object, boxes, title and texts.
#pragma once

#include "core/ui/Tietueikkuna.h"

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

class QAction;
class QFormLayout;
class QLineEdit;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;
class cKoodirivi;

class KoodilistaIkkuna : public QWidget {
    Q_OBJECT
public:
    // The window's own texts. The tips not given here are those of the attribute window.
    struct Tekstit {
        QString otsikko;       // window title after "Vonari - "
        QString poistokysymys; // the question of cPoista
        QString juuri;         // the tree's root above the rows; none when empty
        QString vihjeTallenna = QStringLiteral("Tallenna näytöllä oleva ominaisuus [F3]");
        QString vihjePoista = QStringLiteral("Poista näytössä oleva ominaisuus [F4]");
        QString vihjeSelaa = QStringLiteral("Selaa ominaisuusluetteloa [F5]");
        QString vihjeSulje = QStringLiteral("Sulje Ominaisuudet [Alt+F4]");
    };
    ~KoodilistaIkkuna() override;
    // The database check, the tree and the first row. False after the message when the window
    // cannot be used; it is then not to be shown.
    bool lataa();

    cKoodirivi *curMainObject;
    QToolButton *cUusi, *cTallenna, *cPoista, *cSelaa, *cPeru;
    QToolButton *cEnsimmainen, *cEdellinen, *cSeuraava, *cViimeinen, *cSulje;
    QTreeWidget *tvwLista;

protected:
    KoodilistaIkkuna(QWidget *parent, const char *nimi, const Tekstit &tekstit, cKoodirivi *olio);

    // A box of the row: its caption, the width of its field, and how it writes through to the
    // record object on change.
    QLineEdit *kentta(const char *nimi, const QString &otsikko, int leveys, std::function<void(const QString &)> kirjoita);
    // Fills the boxes from the record object.
    virtual void naytaKentat() = 0;

    void closeEvent(QCloseEvent *e) override;

private:
    QToolButton *komento(const char *nimi, const QString &teksti, const QString &vihje, const QKeySequence &nappain,
                         std::function<void()> toiminto);
    void rakenna(const Tekstit &t);
    void nayta();
    bool tallennaKesken();
    void rakennaPuu();
    void paivitaSolmu();

    void uusi();
    void tallenna();
    void poista();
    void peru();
    void siirry(tietue::Siirto s);
    void puustaValittu(QTreeWidgetItem *s);

    QFormLayout *m_kentat = nullptr;
    QList<QAction *> m_komennot;
    QString m_poistokysymys;
    QString m_juuri;
    bool m_naytetaan = false; // the window itself is filling its boxes or its tree
};

// Opens a code-list window once: a second call brings the open one forward, and a window whose
// load fails is not shown.
template <class Ikkuna>
void AvaaKoodilista(QWidget *parent)
{
    static QPointer<QWidget> auki;
    tietue::AvaaKerran(auki, [parent]() -> QWidget * {
        auto w = std::make_unique<Ikkuna>(parent);
        return w->lataa() ? w.release() : nullptr;
    });
}
