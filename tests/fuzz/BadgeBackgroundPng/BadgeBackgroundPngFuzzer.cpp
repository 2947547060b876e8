// Any bytes as the badge background: the loader gives an image of at most 4096 pixels a side,
// or none, within bounded time and memory.
#include "ImageFile.h"

#include <QtGlobal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // The decoder's complaints about broken files say nothing here.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QImage image = pomwick::imageWithData(
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (!image.isNull() && (image.width() > 4096 || image.height() > 4096))
        std::abort();
    return 0;
}
