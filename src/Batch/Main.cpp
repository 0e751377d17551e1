#include "Batch/Jobs/Process.h"
#include "Batch/Program.h"

int main(int argc, char** argv) {
    return Batch::Run(Batch::StartProcess(argc, argv));
}
