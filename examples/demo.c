#include <stdio.h>
#include "nuvs.h"
int main(void) {
    const NuvLibraryVersion* v = nuvsGetLibVersion();
    printf("%s %s\n", v->Name, v->Version);
    return 0;
}
