// Models over the members in name order: the name tree with its letter nodes, and the plain
// list of everybody that the family tab adds from. Both hold the rows as built, so that a
// register of 100,000 members opens and scrolls without a widget per member.
#pragma once

#include "members/Nimipuu.h"

#include <QAbstractItemModel>
#include <QAbstractListModel>

class NimipuuMalli : public QAbstractItemModel {
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    void aseta(Nimipuu puu);
    // The member of a node; 0 for a letter node.
    qint64 jasenId(const QModelIndex &i) const;
    // Takes the member's node away; the letter's count stays as it was built.
    void poistaJasen(qint64 jrId);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &i, int role = Qt::DisplayRole) const override;

private:
    Nimipuu m_puu;
    QVector<int> m_maarat;
};

class NimiListaMalli : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void aseta(QVector<NimiRivi> nimet);
    qint64 jasenId(int rivi) const;
    QString teksti(int rivi) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &i, int role = Qt::DisplayRole) const override;

private:
    QVector<NimiRivi> m_nimet;
};
