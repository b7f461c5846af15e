// A program linked with one layer and those below it: see pallomir_floor().
int main() {}
