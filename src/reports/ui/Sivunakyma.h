// The preview's pages as paper on a grey desk. Only the pages in sight are read and painted, and
// the scroll bar counts in pages, not in one tall widget's pixels, so there is no limit to how
// many pages it scrolls through.
#pragma once

#include "reports/Asiakirja.h"

#include <QAbstractScrollArea>
#include <deque>
#include <map>

class Sivusto;

class Sivunakyma : public QAbstractScrollArea {
    Q_OBJECT
public:
    Sivunakyma(const Sivusto &sivut, QWidget *parent = nullptr);

    // Pixels for a twip; the page at the top of the view stays there.
    void asetaMittakaava(double pikseliaTwipille);
    double mittakaava() const { return m_mitta; }
    // The page at the top of the view, from 0.
    int nakyvaSivu() const;
    void naytaSivu(int sivu);

signals:
    void sivuVaihtui(int sivu);
    void leveysMuuttui();

protected:
    void paintEvent(QPaintEvent *e) override;
    void resizeEvent(QResizeEvent *e) override;

private:
    static constexpr int Reuna = 16;
    static constexpr int Askeleita = 1000; // scroll bar steps to a page

    QSizeF sivunKoko() const { return m_pohja.koko * m_mitta; }
    double askelenKorkeus() const { return (sivunKoko().height() + Reuna) / Askeleita; }
    void paivitaPalkit();
    const Sivu &sivu(int i);

    const Sivusto &m_sivut;
    const Asiakirja &m_pohja;
    int m_sivuja;
    double m_mitta = 0.05;
    std::map<int, Sivu> m_luetut; // the pages last shown, read once
    std::deque<int> m_luetutJarjestys;
};
