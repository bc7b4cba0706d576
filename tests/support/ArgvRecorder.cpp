// Writes its arguments, one per line, to the file named by RV_ARGV_RECORD,
// so a test can see exactly which words a program was started with.
#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[])
{
    const char* path = std::getenv("RV_ARGV_RECORD");
    if (!path)
        return 2;
    std::FILE* out = std::fopen(path, "a");
    if (!out)
        return 3;
    for (int i = 1; i < argc; ++i)
        std::fprintf(out, "%s\n", argv[i]);
    std::fprintf(out, "--end--\n");
    std::fclose(out);
    return argc > 1 ? 0 : 4;
}
