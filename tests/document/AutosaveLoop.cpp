// Writes the working copy of the largest menu over and over, switching between two revisions, until it
// is killed. Tells its parent "saved" after each complete save; ends with status 1 when a save fails.
#include "Revisions.h"
#include "document/WorkingCopy.h"
#include "support/SampleDocuments.h"

#include <cstdio>

int main()
{
    const auto document = SampleDocuments::largestMenu();
    for (int round = 0;; ++round) {
        applyRevision(*document, round % 2);
        if (!WorkingCopy::save(*document).isEmpty()) {
            return 1;
        }
        std::printf("saved\n");
        std::fflush(stdout);
    }
}
