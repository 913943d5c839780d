#!/usr/bin/env python3
"""Writes the built-in invoice and reminder layouts (resources/raportit/jro*.rpt, jrph*.rpt) from
one description, so that the nine files share their letterhead, rows and giro slip measure for
measure. Change the layouts here and run:  python3 tools/laskupohjat.py

The giro slip follows the banks' form: the bottom 101.6 mm of an A4 page, rows of 8, 7, 14, 2, 4
and 13 twelfths of an inch, a label column of 20 mm and two columns of 91.4 mm."""

import os
from xml.sax.saxutils import escape

HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(HERE, '..', 'resources', 'raportit')

TWELFTH = 25.4 / 12
SLIP = 101.6
# Pages without the slip keep this much paper free below the rows. The slip's band is this much
# shorter than the slip, and its items reach on to the paper's edge.
BOTTOM = 12.0
THIN = 0.37   # pt: 0.13 mm
THICK = 1.42  # pt: 0.50 mm


def a(v):
    return escape(str(v), {'"': '&quot;'})


def num(x):
    return ('%.2f' % x).rstrip('0').rstrip('.')


class Layout:
    def __init__(self, src, fi_sv, kind, copy):
        self.src, self.fi_sv, self.kind, self.copy = src, fi_sv, kind, copy
        self.out = []

    # --- field names -----------------------------------------------------------------------
    def f(self, name):
        if self.src == 'jm':
            return '{jm.jm%s}' % name
        return '{jmhist.jmhjm%s}' % name

    def key(self):
        return '{jm.jmID}' if self.src == 'jm' else '{jmhist.jmhID}'

    def t(self, fi, sv):
        return fi + ' / ' + sv if self.fi_sv else fi

    # --- items -----------------------------------------------------------------------------
    # Texts keep their own fonts unless `osiofontti=True`: the slip and the letterhead are measured,
    # and only the invoice's rows and free texts take the fonts of the settings.
    def text(self, x, y, w, h, expr=None, fixed=None, ind='    ', osiofontti=False, **kw):
        attrs = 'x="%s" y="%s" leveys="%s" korkeus="%s"' % (num(x), num(y), num(w), num(h))
        for k, v in kw.items():
            attrs += ' %s="%s"' % (k, a(v))
        if not osiofontti:
            attrs += ' osiofontti="ei"'
        if expr is not None:
            self.out.append('%s<teksti %s lauseke="%s"/>' % (ind, attrs, a(expr)))
        else:
            self.out.append('%s<teksti %s>%s</teksti>' % (ind, attrs, a(fixed)))

    def line(self, x1, y1, x2, y2, pt, ind='    ', **kw):
        attrs = ''.join(' %s="%s"' % (k, a(v)) for k, v in kw.items())
        self.out.append('%s<viiva x1="%s" y1="%s" x2="%s" y2="%s" paksuus="%s"%s/>'
                        % (ind, num(x1), num(y1), num(x2), num(y2), num(pt), attrs))

    def w(self, s):
        self.out.append(s)

    # --- formulas --------------------------------------------------------------------------
    def formulas(self):
        f = self.f
        for n in ['Seurannimi', 'Seuranosoite', 'Seuranpostiosoite', 'Puhelin', 'Pankkiyhteys1',
                  'Pankkiyhteys2', 'SeuranEmail', 'YTunnus']:
            self.w('  <kaava nimi="%s"/>' % n)
        if self.kind == 'karh':
            self.w('  <kaava nimi="MuistutusAlku"/>')
            self.w('  <kaava nimi="MuistutusLoppu"/>')
            self.w('  <kaava nimi="MuistutusOtsake"/>')
        if self.copy:
            self.w('  <!-- The print flow hands in Kopio= \'KOPIO\' when it prints a copy. -->')
            self.w('  <kaava nimi="Kopio"/>')
        self.w('  <!-- The settings hand these in with their captions: "Email: …", "Y-tunnus:…". -->')
        self.w('  <kaava nimi="Sahkoposti" lauseke="Trim(Replace({@SeuranEmail}, \'Email:\', \'\'))"/>')
        self.w('  <kaava nimi="Ytunnusnumero" lauseke="Trim(Replace({@YTunnus}, \'Y-tunnus:\', \'\'))"/>')
        own = "%s and Trim('' + %s) <> ''" % (f('KaytaPankkitili1'), f('Pankkitili1'))
        self.w('  <!-- The accounts on the invoice: its own alone ("Vain valittu tilinumero"), otherwise the club\'s. -->')
        self.w('  <kaava nimi="Tili1" lauseke="%s"/>' % a("IIf(%s, %s, IIf(Trim({@Pankkiyhteys1}) <> '', {@Pankkiyhteys1}, {@Pankkiyhteys2}))"
                                                        % (own, f('Pankkitili1'))))
        self.w('  <kaava nimi="Tili2" lauseke="%s"/>' % a("IIf(%s or Trim({@Pankkiyhteys1}) = '', '', {@Pankkiyhteys2})"
                                                        % own))
        if self.kind == 'karh':
            self.w('  <!-- A reminder is due two weeks from its date; its slip asks for the total. -->')
            self.w('  <kaava nimi="Erapaiva" lauseke="%s"/>' % a("{jmhist.jmhjmMuistutusPaiva} + 14"))
            self.w('  <kaava nimi="Maksettava" lauseke="%s"/>'
                   % a("IIf(IsNull({jmhist.jmhjmMuistutusYhteensa}), {jmhist.jmhjmAvoinSumma}, {jmhist.jmhjmMuistutusYhteensa})"))
            self.w('  <kaava nimi="Otsake" lauseke="%s"/>'
                   % a("IIf(Trim({@MuistutusOtsake}) <> '', Trim({@MuistutusOtsake}), "
                       "IIf(Trim({jmhist.jmhjmMuistutusOtsake}) <> '', Trim({jmhist.jmhjmMuistutusOtsake}), 'MAKSUMUISTUTUS'))"))
        else:
            self.w('  <kaava nimi="Erapaiva" lauseke="%s"/>' % a(f('Erapaiva')))
            self.w('  <!-- An invoice without a total leaves the amount to the payer. -->')
            self.w('  <kaava nimi="Maksettava" lauseke="%s"/>' % a("IIf(%s, 0, %s)" % (f('EiLoppusummaa'), f('Hinta'))))
        self.w('  <kaava nimi="Viite" lauseke="%s"/>' % a("Trim('' + %s)" % f('Viitenumero')))
        self.w('  <!-- Without a reference the payer writes this message instead. -->')
        self.w('  <kaava nimi="Viesti" lauseke="%s"/>'
               % a("'Lasku ' + ToText(%s) + IIf(Trim(%s) <> '', ', ' + Trim(%s), '')" % (f('Laskunumero'), f('Teksti'), f('Teksti'))))
        self.w('  <!-- The barcode and the QR code carry exactly what the slip prints. -->')
        self.w('  <kaava nimi="Viivakoodi" lauseke="%s"/>' % a("Pankkiviivakoodi({@Tili1}, {@Maksettava}, {@Viite}, {@Erapaiva})"))
        self.w('  <kaava nimi="QrKoodi" lauseke="%s"/>'
               % a("EpcQr({@Seurannimi}, {@Tili1}, {@Maksettava}, {@Viite}, {@Erapaiva}, {@Viesti})"))

    # --- page header: the letterhead and the invoice's details ----------------------------
    def page_header(self):
        f = self.f
        self.w('  <sivuotsikko korkeus="46">')
        self.w('    <kuva nimi="Logo" x="85" y="8" leveys="20" korkeus="20" tiedosto="logo.png" valinnainen="kyllä"/>')
        self.text(20, 8.5, 63, 12.5, '{@Seurannimi}', koko=10, lihava='kyllä', rivita='kyllä', nimi='Seura')
        self.text(20, 21.5, 63, 19,
                  "Rivit({@Seuranosoite}, {@Seuranpostiosoite}, IIf(Trim({@Puhelin}) <> '', 'Puh. ' + Trim({@Puhelin}), ''), "
                  "{@Sahkoposti}, IIf({@Ytunnusnumero} <> '', 'Y-tunnus ' + {@Ytunnusnumero}, ''))", koko=8.5, nimi='Yhteystiedot')
        if self.kind == 'karh':
            heading = "{@Otsake}"
        else:
            heading = "'%s'" % self.t('LASKU', 'FAKTURA')
        self.text(110, 9, 60, 8, heading, koko=15, lihava='kyllä', nimi='Otsikko')
        self.text(160, 10, 35, 5, "'%s ' + ToText(PageNumber) + '/' + ToText(TotalPages)" % self.t('Sivu', 'Sida'),
                  koko=9, tasaus='oikea', nimi='Sivu')
        if self.copy:
            self.text(110, 16.5, 50, 6, '{@Kopio}', koko=12, lihava='kyllä', vari='#a00000', nimi='Kopio')
        # label, value, bold, shown when
        if self.kind == 'karh':
            rows = [(self.t('Muistutuspäivä', 'Påminnelsedatum'), "{jmhist.jmhjmMuistutusPaiva}", False, None),
                    (self.t('Laskun numero', 'Fakturanr'), "ToText(%s)" % f('Laskunumero'), False, None),
                    (self.t('Laskun eräpäivä', 'Förfallodag'), f('Erapaiva'), False, None),
                    (self.t('Viitenumero', 'Ref.nr'), "Viite({@Viite})", True, None),
                    (self.t('Eräpäivä', 'Förfallodag'), "{@Erapaiva}", True, None)]
        else:
            rows = [(self.t('Päiväys', 'Datum'), f('Laskupaiva'), False, None),
                    ('Laskun nro / Fakturanr' if self.fi_sv else 'Laskun numero', "ToText(%s)" % f('Laskunumero'), False, None),
                    (self.t('Eräpäivä', 'Förfallodag'), "{@Erapaiva}", True, None),
                    (self.t('Viitenumero', 'Ref.nr'), "Viite({@Viite})", True, "{@Viite} <> ''")]
        lw = 40 if self.fi_sv else 30
        y = 23
        for label, expr, bold, cond in rows:
            shown = {'nakyy': cond} if cond else {}
            self.text(110, y, lw, 4.5, fixed=label, koko=8, **shown)
            kw = {'lihava': 'kyllä'} if bold else {}
            self.text(110 + lw + 1, y - 0.3, 84 - lw, 4.8, expr, koko=9.5, **kw, **shown)
            y += 4.4
        if self.kind != 'karh':
            # An invoice's later page goes on with its rows under their headings.
            self.col_heads(41, '    ', 'PageNumber > 1')
        self.w('  </sivuotsikko>')

    def col_heads(self, y, ind, cond=None):
        kw = {'nakyy': cond} if cond else {}
        self.text(20, y, 100, 4.5, fixed=self.t('Selite', 'Beskrivning'), ind=ind, koko=8.5, lihava='kyllä', **kw)
        self.text(150, y, 40, 4.5, fixed=self.t('Summa', 'Belopp'), ind=ind, koko=8.5, lihava='kyllä', tasaus='oikea', **kw)
        self.line(20, y + 4.8, 190, y + 4.8, 0.6, ind=ind, **kw)

    def payer(self, y):
        maa = "IIf(UpperCase(Trim({jr.jrMaa})) = 'SUOMI' or UpperCase(Trim({jr.jrMaa})) = 'FINLAND', '', {jr.jrMaa})"
        return ("Rivit(Trim({jr.jrEtunimi} + ' ' + {jr.jrSukunimi}), {jr.jrYritys}, {jr.jrOsoite}, "
                "Trim({jr.jrPostinumero} + ' ' + {jr.jrPostitoimipaikka}), %s)" % maa)

    # --- the first page's addresses -------------------------------------------------------
    def group_header(self):
        f = self.f
        h = 44 if self.kind != 'karh' else 36
        self.w('    <otsikko korkeus="%d">' % h)
        self.w('      <!-- The payer\'s address shows in the window of a C5 or DL envelope. -->')
        self.text(22, 3, 85, 24, self.payer(3), ind='      ', koko=10, osiofontti=True, nimi='Maksaja')
        self.text(110, 3, 85, 6, f('Otsake'), ind='      ', koko=11, lihava='kyllä', nimi='Laskun otsake')
        self.text(110, 9.5, 85, 4.5, "IIf(Trim({jr.jrJasennumero}) <> '', '%s ' + Trim({jr.jrJasennumero}), '')"
                  % self.t('Jäsennumero', 'Medlemsnummer'), ind='      ', koko=8.5, nimi='Jäsennumero')
        if self.kind != 'karh':
            self.col_heads(36, '      ')
        self.w('    </otsikko>')

    # --- the giro slip ---------------------------------------------------------------------
    def slip(self):
        T = TWELFTH
        r1, r2, r3, r4, r5 = 8 * T, 15 * T, 29 * T, 31 * T, 35 * T   # lower edges of the rows
        ref_top = r3 - 4 * T
        mid, lab, right = 111.4, 20.0, 202.8
        I = '      '
        L = lambda *p, **k: self.line(*p, ind=I, **k)
        self.w('    <alatunniste korkeus="%s" alaosaan="kyllä">' % num(SLIP - BOTTOM))
        self.w('      <!-- The giro slip: the bottom 101.6 mm of the page, as the banks\' form measures it. The band')
        self.w('           stops at the page\'s bottom margin; the slip goes on to the paper\'s edge. -->')
        L(0, 0, 210, 0, THIN, nimi='Lomakkeen yläreuna')
        L(lab, 0, lab, r3, THIN)
        L(lab, r4, lab, r5, THIN)
        L(mid, 0, mid, r5, THICK, nimi='Keskiviiva')
        # The vertical title has the strip left of the labels to itself.
        strip = 3.4
        L(strip, r1, mid, r1, THIN)
        L(strip, r2, mid, r2, THIN)
        L(mid, ref_top, right, ref_top, THICK)
        L(131.4, ref_top, 131.4, r3, THIN)
        L(strip, r3, right, r3, THICK, nimi='Viitenumeron alareuna')
        L(lab + 2, r4 - 0.6, mid - 3, r4 - 0.6, THIN, nimi='Allekirjoitusviiva')
        L(strip, r4, right, r4, THICK, nimi='Eräpäivän yläreuna')
        L(131.4, r4, 131.4, r5, THIN)
        L(163, r4, 163, r5, THIN)
        L(strip, r5, right, r5, THICK, nimi='Viivakoodialueen yläreuna')
        self.text(0.2, 1, 3.2, r5 - 2, fixed='TILISIIRTO. GIRERING',
                  ind=I, koko=8, lihava='kyllä', kierto=90, tasaus='keski', nimi='Lomakkeen nimi')
        lx, lw = 3.5, lab - 3.5 - 0.3
        labels = [(0.8, 'Saajan tilinumero', 'Mottagarens kontonummer', 4),
                  (r1 + 0.8, 'Saaja', 'Mottagare', 3),
                  (r2 + 0.8, 'Maksajan nimi ja osoite', 'Betalarens namn och adress', 6),
                  (r4 + 0.6, 'Tililtä nro', 'Från konto nr', 2)]
        for y, fi, sv, n in labels:
            self.text(lx, y, lw, n * 2.9, fixed=fi + ' ' + sv, ind=I, koko=7, rivita='kyllä')
        self.text(lx, r3 + 0.3, mid - lx - 2, 3.2, fixed='Allekirjoitus / Underskrift', ind=I, koko=6.5)
        # Accounts: IBAN with the bank's name and BIC, the payer's bank reads the first.
        for i, n in ((0, '1'), (1, '2')):
            y = 1.2 + i * 4.2
            cond = "Trim({@Tili%s}) <> ''" % n
            self.text(lab + 1.5, y, 52, 4.2, 'TiliIban({@Tili%s})' % n, ind=I, koko=10, lihava='kyllä', nakyy=cond,
                      nimi='Tilinumero %s' % n)
            self.text(lab + 54, y + 0.3, mid - lab - 55, 4, "Trim(TiliPankki({@Tili%s}) + ' ' + TiliBic({@Tili%s}))" % (n, n),
                      ind=I, koko=8, nakyy=cond, nimi='Pankki %s' % n)
        # A long name takes two lines: the address then goes on one.
        self.text(lab + 1.5, r1 + 1, mid - lab - 3, 13, "Rivit({@Seurannimi}, {@Seuranosoite}, {@Seuranpostiosoite})",
                  ind=I, koko=9, rivita='kyllä', nakyy='Len({@Seurannimi}) <= 45', nimi='Saaja')
        self.text(lab + 1.5, r1 + 1, mid - lab - 3, 13,
                  "Rivit({@Seurannimi}, Trim({@Seuranosoite} + IIf(Trim({@Seuranosoite}) <> '' and Trim({@Seuranpostiosoite}) <> '', ', ', '') + {@Seuranpostiosoite}))",
                  ind=I, koko=9, rivita='kyllä', nakyy='Len({@Seurannimi}) > 45', nimi='Saaja, pitkä nimi')
        self.text(lab + 1.5, r2 + 2, mid - lab - 3, 22, self.payer(0), ind=I, koko=10, nimi='Maksajan osoite')
        # The biller's free area: what the payment is for, the message without a reference, the QR code.
        what = '{@Otsake}' if self.kind == 'karh' else self.f('Teksti')
        self.text(mid + 2, 1.5, 57, 20, "Rivit(%s, '%s ' + ToText(%s))" % (what, self.t('Laskun numero', 'Fakturanummer'),
                                                                      self.f('Laskunumero')), ind=I, koko=9, rivita='kyllä',
                  nimi='Maksun aihe')
        self.text(mid + 2, 23, 57, 13, "'%s: ' + {@Viesti}" % self.t('Viesti', 'Meddelande'), ind=I, koko=9, rivita='kyllä',
                  nakyy="{@Viite} = ''", nimi='Viesti')
        self.w('      <qr nimi="QR-koodi" x="172" y="1.5" leveys="30" korkeus="30" lauseke="{@QrKoodi}"/>')
        self.text(mid + 1.2, ref_top + 0.6, 19, 7.5, fixed='Viitenro Ref.nr', ind=I, koko=7, rivita='kyllä')
        self.text(133, ref_top + 2.2, right - 134, 5, 'Viite({@Viite})', ind=I, koko=11, lihava='kyllä', nimi='Viitenumero')
        self.text(mid + 1.2, r4 + 0.5, 19, 7.5, fixed='Eräpäivä Förfallodag', ind=I, koko=7, rivita='kyllä')
        self.text(133, r4 + 2.2, 29, 5, 'Pvm({@Erapaiva})', ind=I, koko=11, lihava='kyllä', nimi='Eräpäivä')
        self.text(164, r4 + 0.5, 10, 3.5, fixed='Euro', ind=I, koko=7)
        amount = "IIf(%s, '', Raha({@Maksettava}))" % self.f('EiLoppusummaa') if self.kind != 'karh' else 'Raha({@Maksettava})'
        self.text(166, r4 + 2.2, right - 167.5, 5, amount, ind=I, koko=11, lihava='kyllä', tasaus='oikea', nimi='Euro')
        self.text(128, r5 + 1.2, 74, 10.5,
                  fixed='Maksu välitetään saajalle maksujenvälityksen ehtojen mukaisesti ja vain maksajan ilmoittaman '
                        'tilinumeron perusteella. Betalningen förmedlas till mottagaren enligt villkoren för '
                        'betalningsförmedling och endast till det kontonummer som betalaren angivit.',
                  ind=I, koko=6, rivita='kyllä', nimi='Ehdot')
        self.w('      <!-- Bars from 20 mm: the area starts at 17 mm, its first 3 mm are the symbol\'s own quiet zone. -->')
        self.w('      <viivakoodi nimi="Pankkiviivakoodi" x="17" y="%s" leveys="111" korkeus="12" lauseke="{@Viivakoodi}"/>'
               % num(r5 + 10.5))
        self.w('    </alatunniste>')

    # --- payment details of an invoice without a slip -------------------------------------
    def payment_box(self):
        I = '      '
        h = 58
        self.w('    <alatunniste korkeus="%d" alaosaan="kyllä">' % h)
        self.line(20, 0, 190, 0, 0.6, ind=I)
        self.text(20, 2, 120, 5, fixed=self.t('Maksutiedot', 'Betalningsuppgifter'), ind=I, koko=10, lihava='kyllä')
        lw = 45 if self.fi_sv else 28
        rows = [(self.t('Saaja', 'Mottagare'), '{@Seurannimi}', False, None),
                (self.t('Tilinumero', 'Kontonummer'), "TiliIban({@Tili1}) + '  ' + Trim(TiliPankki({@Tili1}) + ' ' + TiliBic({@Tili1}))", True, None),
                ('', "TiliIban({@Tili2}) + '  ' + Trim(TiliPankki({@Tili2}) + ' ' + TiliBic({@Tili2}))", True, "Trim({@Tili2}) <> ''"),
                (self.t('Viitenumero', 'Referensnummer'), 'Viite({@Viite})', True, "{@Viite} <> ''"),
                (self.t('Viesti', 'Meddelande'), '{@Viesti}', True, "{@Viite} = ''"),
                (self.t('Eräpäivä', 'Förfallodag'), 'Pvm({@Erapaiva})', True, None),
                (self.t('Summa', 'Belopp'), "IIf(%s, '', Euro({@Maksettava}))" % self.f('EiLoppusummaa'), True, None)]
        y = 8
        for label, expr, bold, cond in rows:
            kw = {'nakyy': cond} if cond else {}
            if label:
                self.text(20, y + 0.3, lw, 4.5, fixed=label, ind=I, koko=8.5, **kw)
            kb = {'lihava': 'kyllä'} if bold else {}
            self.text(20 + lw + 1, y, 150 - lw - 21, 4.8, expr, ind=I, koko=10, **kw, **kb)
            if cond != "{@Viite} <> ''":
                y += 4.6
        self.w('      <qr nimi="QR-koodi" x="158" y="4" leveys="32" korkeus="32" lauseke="{@QrKoodi}"/>')
        self.w('      <viivakoodi nimi="Pankkiviivakoodi" x="17" y="42" leveys="111" korkeus="12" lauseke="{@Viivakoodi}"/>')
        self.w('    </alatunniste>')

    # --- the whole file --------------------------------------------------------------------
    def build(self, title, comment):
        f = self.f
        w = self.w
        w('<?xml version="1.0" encoding="UTF-8"?>')
        w('<!-- %s' % comment)
        w('     Written by tools/laskupohjat.py: change the layout there and run it again. -->')
        w('<raportti nimi="%s">' % a(title))
        w('  <sivu koko="A4" suunta="pysty" vasen="0" oikea="0" yla="0" ala="%s" lukittu="kyllä"/>' % num(BOTTOM))
        w('  <fontti nimi="Arial" koko="10"/>')
        w('')
        if self.src == 'jm':
            w('  <lahde taulu="jm">')
            w('    <liitos taulu="jr" ehto="{jr.jrID} = {jm.jmjrID}"/>')
            w('    <liitos taulu="me" ehto="{me.meID} = {jm.jmmeID}"/>')
            w('    <liitos taulu="jmRivi" ehto="{jmRivi.jmRjmID} = {jm.jmID}"/>')
        else:
            w('  <lahde taulu="jmhist">')
            w('    <liitos taulu="jr" ehto="{jr.jrID} = {jmhist.jmhjmjrID}"/>')
            if self.kind != 'karh':
                w('    <liitos taulu="me" ehto="{me.meID} = {jmhist.jmhjmmeID}"/>')
                w('    <liitos taulu="jmRivi" ehto="{jmRivi.jmRjmID} = {jmhist.jmhjmID}"/>')
        w('  </lahde>')
        w('')
        self.formulas()
        w('')
        w('  <jarjestys>+%s</jarjestys>' % f('Laskunumero'))
        if self.kind != 'karh':
            w('  <jarjestys>+{jmRivi.jmRID}</jarjestys>')
        w('')
        self.page_header()
        w('')
        w('  <!-- Every invoice on pages of its own, numbered "Sivu 1/2" by themselves; the slip stays at')
        w('       the foot of its last page. -->')
        w('  <ryhma lauseke="%s" sivutus="oma">' % self.key())
        self.group_header()
        if self.kind == 'mak':
            self.payment_box()
        else:
            self.slip()
        w('  </ryhma>')
        if self.kind == 'karh':
            self.reminder_body()
        else:
            self.invoice_body()
        w('</raportti>')
        return '\n'.join(self.out) + '\n'

    def invoice_body(self):
        f = self.f
        w = self.w
        w('  <ryhma lauseke="%s">' % self.key())
        w('    <alatunniste korkeus="16">')
        cond = "IsNull(%s) or %s = False" % (f('EiLoppusummaa'), f('EiLoppusummaa'))
        self.line(130, 1, 190, 1, 0.6, ind='      ', nakyy=cond)
        self.text(100, 2, 55, 5, fixed=self.t('Yhteensä', 'Totalt'), ind='      ', koko=10, lihava='kyllä', tasaus='oikea',
                  nakyy=cond)
        self.text(155, 2, 35, 5, 'Euro(%s)' % f('Hinta'), ind='      ', koko=10, lihava='kyllä', tasaus='oikea', nakyy=cond,
                  nimi='Yhteensä')
        self.text(20, 10, 170, 5, '{me.meTeksti}', ind='      ', koko=10, kasvaa='kyllä', osiofontti=True, nimi='Lisätiedot')
        w('    </alatunniste>')
        w('  </ryhma>')
        w('')
        w('  <rivi korkeus="5" nakyy="not IsNull({jmRivi.jmRID})">')
        self.text(20, 0.5, 128, 4.5, '{jmRivi.jmRTeksti}', ind='    ', kasvaa='kyllä', osiofontti=True, nimi='Rivin teksti')
        self.text(150, 0.5, 40, 4.5, '{jmRivi.jmRHinta}', ind='    ', muoto='raha', osiofontti=True, tasaus='oikea', nimi='Rivin summa')
        w('  </rivi>')

    def reminder_body(self):
        w = self.w
        I = '      '
        w('  <ryhma lauseke="{jmhist.jmhID}">')
        w('    <otsikko korkeus="8">')
        self.text(20, 2, 170, 5, '{@MuistutusAlku}', ind=I, kasvaa='kyllä', osiofontti=True, nimi='MuistutusAlku')
        w('    </otsikko>')
        w('    <alatunniste korkeus="10">')
        self.text(20, 3, 170, 5, '{@MuistutusLoppu}', ind=I, kasvaa='kyllä', osiofontti=True, nimi='MuistutusLoppu')
        w('    </alatunniste>')
        w('  </ryhma>')
        w('')
        w('  <rivi korkeus="38">')
        h = '{jmhist.jmhjm%s}'
        rows = [(self.t('Avoinna oleva summa', 'Öppet belopp'), 'Raha(%s)' % (h % 'AvoinSumma'), None),
                (self.t('Muistutuskulut', 'Påminnelseavgift'), 'Raha(%s)' % (h % 'MuistutusKulut'), None),
                ("'%s ' + ToText(%s, 2) + ' %%'" % (self.t('Viivästyskorko', 'Dröjsmålsränta'), h % 'MuistutusKorko'),
                 'Raha(%s)' % (h % 'MuistutusKorkoSumma'), True)]
        self.text(20, 2, 170, 5, "'%s ' + ToText(%s) + ', ' + Trim(%s) + ', %s ' + Pvm(%s)"
                  % (self.t('Lasku', 'Faktura'), h % 'Laskunumero', h % 'Otsake', self.t('eräpäivä', 'förfallodag'), h % 'Erapaiva'),
                  ind='    ', koko=10, lihava='kyllä', nimi='Lasku')
        y = 9
        for label, expr, is_expr in rows:
            if is_expr:
                self.text(30, y, 110, 5, label, ind='    ', koko=10)
            else:
                self.text(30, y, 110, 5, fixed=label, ind='    ', koko=10)
            self.text(150, y, 40, 5, expr, ind='    ', koko=10, tasaus='oikea')
            y += 5.5
        self.line(130, y + 0.5, 190, y + 0.5, 0.6, ind='    ')
        self.text(30, y + 1.5, 110, 5, fixed=self.t('Maksettava yhteensä', 'Att betala totalt'), ind='    ', koko=10, lihava='kyllä')
        self.text(150, y + 1.5, 40, 5, 'Euro({@Maksettava})', ind='    ', koko=10, lihava='kyllä', tasaus='oikea', nimi='Maksettava')
        w('  </rivi>')


FILES = [
    ('jrotile.rpt', 'jm', False, 'tile', False, 'Lasku tilisiirtolomakkeella',
     'Invoice of the open batch with the giro slip, its bank barcode and payment QR code; Finnish.'),
    ('jrotile2.rpt', 'jm', True, 'tile', False, 'Lasku tilisiirtolomakkeella, suomi ja ruotsi',
     'Invoice of the open batch with the giro slip; labels in Finnish and Swedish.'),
    ('jromak.rpt', 'jm', False, 'mak', False, 'Yleislasku',
     'General and member-card invoice of the open batch: no slip, the payment details, barcode and QR code.'),
    ('jromak2.rpt', 'jm', True, 'mak', False, 'Yleislasku, suomi ja ruotsi',
     'General and member-card invoice of the open batch, labels in Finnish and Swedish.'),
    ('jrphtile.rpt', 'jmhist', False, 'tile', True, 'Lasku tilisiirtolomakkeella (historia)',
     'An invoice of the history printed again with the giro slip; "KOPIO" when a copy is printed.'),
    ('jrphti2e.rpt', 'jmhist', True, 'tile', True, 'Lasku tilisiirtolomakkeella (historia), suomi ja ruotsi',
     'An invoice of the history printed again with the giro slip, Finnish and Swedish labels.'),
    ('jrphmak.rpt', 'jmhist', False, 'mak', True, 'Yleislasku (historia)',
     'A general invoice of the history printed again; "KOPIO" when a copy is printed.'),
    ('jrphmak2.rpt', 'jmhist', True, 'mak', True, 'Yleislasku (historia), suomi ja ruotsi',
     'A general invoice of the history printed again, Finnish and Swedish labels.'),
    ('jrphkarh.rpt', 'jmhist', False, 'karh', False, 'Maksumuistutus',
     'Payment reminder of a history invoice: the open amount, fee, interest and total, and a slip for the total.'),
]


def main():
    for name, src, fi_sv, kind, copy, title, comment in FILES:
        text = Layout(src, fi_sv, kind, copy).build(title, comment)
        with open(os.path.join(OUT, name), 'w', encoding='utf-8') as fh:
            fh.write(text)


if __name__ == '__main__':
    main()
