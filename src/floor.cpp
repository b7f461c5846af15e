// A program of one floor and those below it: see pallomir_floor().
int main() {}
