#include "Support/TestMain.h"

int main(int argc, char** argv) {
    return Support::RunTests(argc, argv);
}
