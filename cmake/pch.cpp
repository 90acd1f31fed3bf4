// The source of the targets that hold a precompiled header.
int main()
{
    return 0;
}
