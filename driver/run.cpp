#include "driver/run.h"

#include "driver/dlgprogress.h"
#include "driver/outputnames.h"
#include "gps/filesaver.h"
#include "gps/gpschain.h"
#include "ui/globals.h"

#include <QCoreApplication>
#include <QFile>

namespace
{
constexpr qint64 BLOCK_SIZE = 0x10000;

// Leaves the one chosen name in the outputs, or nothing.
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
    // Asked once. Asking for each block is measurable in the cost of the whole run.
    const qint64 size = input->size();
    while (!input->atEnd() && progress->isVisible()) {
        block.resize(BLOCK_SIZE);
        block.resize(qMax<qint64>(0, input->read(block.data(), BLOCK_SIZE)));
        // A read that has failed once would fail for ever.
        if (block.isEmpty())
            return;
        parser->slot_Data(block);
        // Special files may deliver bytes although their size is 0.
        if (size > 0)
            progress->ui.progressBar->setValue(static_cast<int>(input->pos() * 100 / size));
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
