// The floor of the chooser: a Qt dialog of its size with a list of five rows.
#include <QApplication>
#include <QDialog>
#include <QTableWidget>
#include <QVBoxLayout>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QDialog dialog;
    dialog.resize(450, 408);
    auto* table = new QTableWidget(5, 3);
    for (int row = 0; row < 5; ++row) {
        for (int column = 0; column < 3; ++column)
            table->setItem(row, column, new QTableWidgetItem(QString::number(row * column)));
    }
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(table);
    return dialog.exec();
}
