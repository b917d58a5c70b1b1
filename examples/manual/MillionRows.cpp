// A million rows of a database: only those that come into view are read, and dropped again.
#include "grid/qt/zuGrid.h"

#include <QSqlDatabase>
#include <QSqlQuery>

#include <memory>

using namespace korvane;

namespace {

constexpr int kRows = 1'000'000;

QSqlDatabase OpenDatabase()
{
    QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "orders");
    database.setDatabaseName(":memory:");
    database.open();
    database.exec("CREATE TABLE orders (id INTEGER PRIMARY KEY, item TEXT, amount INTEGER)");
    database.exec(QStringLiteral("WITH RECURSIVE n(i) AS "
                                 "(SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
                                 "INSERT INTO orders SELECT i, 'Part ' || (i * 7919 % 10007), "
                                 "1 + i * 31 % 97 FROM n")
                      .arg(kRows));
    return database;
}

} // namespace

QWidget *MillionRows()
{
    auto *grid = new TzuGrid;
    for (const char *header : {"Order", "Item", "Amount"}) {
        grid->Columns().Add().SetHeaderText(header);
    }
    grid->Columns().GetColumn(1)->SetWidth(220);

    auto query = std::make_shared<QSqlQuery>(OpenDatabase());
    query->prepare("SELECT id, item, amount FROM orders WHERE id = ?");
    grid->OnVirtualLoad = [grid, query](TObject *, TBabGridCell *cell, TAxisContentItem *item) {
        const int row = cell->Rows().IndexOf(*item) - 1; // behind the header
        query->addBindValue(row + 1);
        query->exec();
        query->next();
        for (int column = 0; column < grid->Columns().Count(); ++column) {
            grid->SetCellText(column, row, query->value(column).toString().toStdString());
        }
    };
    grid->RootCell().Rows().AddUnloaded(kRows); // counts them, reads none
    return grid;
}
