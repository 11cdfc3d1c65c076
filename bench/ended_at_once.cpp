/// An application that is started and ends at once.
int main() {
    return 0;
}
