// Hands the inputs of the compiler's fuzzing engine to a harness.

#include "Input.h"

#include <QtCore/QtGlobal>

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Fuzz::run(data, size);
    return 0;
}
