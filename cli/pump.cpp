#include "cli/pump.h"

#include "archive/vrk3parser.h"
#include "cli/inputfile.h"
#include "cli/outputfile.h"
#include "cli/progress.h"

void pump(cInputFile &input, cVrk3Parser &parser, cProgress &progress, const cOutputFile *output)
{
    QByteArray block;
    while ((!output || output->error().isEmpty()) && input.next(block)) {
        parser.slot_Data(block);
        progress.setPosition(input.position(), input.size());
    }
}
