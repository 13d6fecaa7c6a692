#include "Host.h"

#include <QtCore/QLoggingCategory>
#include <QtWidgets/QApplication>

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules("default.debug=false"); // a line for each rectangle
    QApplication application(argc, argv);
    Host host;
    host.show();
    return QApplication::exec();
}
