#ifndef PUMP_H
#define PUMP_H

class cInputFile;
class cOutputFile;
class cProgress;
class cVrk3Parser;

// Feeds the input to the parser, from its current position to its end. Stops early if reading fails
// or the output, which may be null, is in error; both objects then hold the reason.
void pump(cInputFile &input, cVrk3Parser &parser, cProgress &progress,
          const cOutputFile *output = nullptr);

#endif
