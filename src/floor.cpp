// An empty program linked with one floor and those below it: see pallomir_floor().
int main() {}
