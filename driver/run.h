#ifndef RUN_H
#define RUN_H

// Converts the first input of gParams to the format of its filter: asks for an output name, then
// reads the input under a progress dialog until its end or until the user cancels. Cancel keeps
// what has been written so far. Leaves the chosen name, or nothing, in the outputs of gParams.
//
// Reports nothing. If the input cannot be opened or the user chooses no name, no file is touched.
void runExtraction();

#endif
