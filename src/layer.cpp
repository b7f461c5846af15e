// An empty program linked with one layer and those below it: see pallomir_layer().
int main() {}
