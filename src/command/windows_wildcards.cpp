// The shells of Windows leave it to a program to take *.MUS for the files of that form: the start-up code of
// this one does so for every argument without quotes.
extern "C" {
int _dowildcard = -1;
}
