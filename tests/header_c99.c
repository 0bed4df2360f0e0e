/* The public header compiles as strict C99, and a C program can call the library. */
#include <nmqcc.h>
#include <nmqcore.h>
#include <string.h>

int main(void) {
    const NmqLibVersion* v = nmqccGetLibVersion();
    ImageSize roi = {1, 1};
    ImageRect rect = {0, 0, 1, 1};
    DitherKind kind = DitherKindBayer;
    NmqStatus st = nmqStsOk;
    (void)roi; (void)rect; (void)kind;
    if (v != nmqccGetLibVersion() || strcmp(v->name, "nmqCC SSE2 (s2)") != 0) st = nmqStsBadArg;
    return st == nmqStsOk ? 0 : 1;
}
