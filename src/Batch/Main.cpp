#include "Batch/Program.h"

int main(int argc, char** argv) {
    return Batch::Run(argc, argv);
}
