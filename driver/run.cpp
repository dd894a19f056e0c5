#include "driver/run.h"

#include "driver/dlgprogress.h"
#include "driver/outputnames.h"
#include "gps/filesaver.h"
#include "gps/gpschain.h"
#include "ui/globals.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

namespace
{
constexpr qint64 BLOCK_SIZE = 0x10000;
// The bar is painted at most once in this many milliseconds. Painting each new percentage would
// cost a quarter of a fast run.
constexpr qint64 PAINT_INTERVAL = 40;

// Sets the outputs to the chosen name, or to nothing.
void _chooseOutput(const QFile &input)
{
    gParams->outputs = proposedOutputs(gParams->inputs, gParams->filter);
    const QString name = askOutput(input, gParams->outputs.constFirst(), gParams->filter);
    gParams->outputs.clear();
    if (!name.isEmpty())
        gParams->outputs.append(name);
}

void _pump(QFile *input, cVrk3Parser *parser, cDlgProgress *progress)
{
    // One buffer for the whole run. A new one for each block would be mapped and faulted in again.
    QByteArray block;
    qint64 size = 0;
    QElapsedTimer sincePaint;
    sincePaint.start();
    while (!input->atEnd() && progress->isVisible()) {
        block.resize(BLOCK_SIZE);
        const qint64 read = input->read(block.data(), BLOCK_SIZE);
        block.resize(static_cast<qsizetype>(qMax<qint64>(0, read)));
        // After a failed read, every further one would fail, too.
        if (block.isEmpty())
            return;
        parser->slot_Data(block);
        const bool paint = sincePaint.hasExpired(PAINT_INTERVAL);
        if (paint)
            sincePaint.start();
        progress->ui.progressBar->setUpdatesEnabled(paint);
        progress->ui.progressBar->setValue(percentRead(*input, &size));
        QCoreApplication::processEvents();
    }
}
} // namespace

void runExtraction()
{
    QFile input(gParams->inputs.constFirst());
    if (!input.open(QIODevice::ReadOnly))
        return;
    _chooseOutput(input);
    if (gParams->outputs.isEmpty())
        return;

    // The order matters: the chain sends its last data from its destructor, into the saver.
    cFileSaver saver(gParams->outputs.constFirst(), nullptr);
    cGpsChain chain(gParams->filter, &saver);
    cDlgProgress progress;
    progress.setVisible(true);
    _pump(&input, &chain.parser(), &progress);
    progress.accept();
}

int percentRead(const QFile &file, qint64 *size)
{
    // Asking the system for the size after each block would slow down the whole run measurably.
    if (file.pos() > *size)
        *size = file.size();
    return *size > 0 ? static_cast<int>(file.pos() * 100 / *size) : 0;
}
