// A library that loads and is no server: it exports none of the four entry points.
extern "C" int OtraCosa() {
  return 0;
}
