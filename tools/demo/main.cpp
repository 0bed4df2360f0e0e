// nmqdemo [OUTDIR]: the demo on its own (nmqconv demo [DIR] runs the same).
#include "demo.h"

int main(int argc, char** argv) { return demo::run(argc > 1 ? argv[1] : "demo-out"); }
