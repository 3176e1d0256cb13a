// SPDX-License-Identifier: MIT
// Gives a target each file of a folder, as libFuzzer does first: run_corpus FOLDER.
#include <QDirIterator>
#include <QFile>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

int main(int argc, char *argv[])
{
    int count = 0;
    QDirIterator files(QFile::decodeName(argc == 2 ? argv[1] : ""), QDir::Files);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly)) {
            return 1;
        }
        const QByteArray bytes = file.readAll();
        std::printf("%s\n", qPrintable(file.fileName()));
        std::fflush(stdout); // who fails is the one named last
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
        ++count;
    }
    return count > 0 ? 0 : 1;
}
