#include "core/BinarySignal.h"
#include "core/Buffer.h"
#include "core/Hyperellipsoid.h"
#include "core/Hyperrectangle.h"
#include "core/Signal.h"
#include "core/Tuple.h"

// The library offers these instances of its containers. The program does not use them all, so all
// are compiled here: none can break unnoticed. Where an instance only inherits its members, its
// base is listed as well.
namespace VORN {

template class ArrayBuffer<8>;

template class Tuple<1, unsigned>;
template class Tuple<1, float>;
template class Tuple<2, int>;
template class Tuple<2, unsigned>;
template class Tuple<2, float>;
template class Tuple<3, unsigned char>;
template class Tuple<3, int>;
template class Tuple<3, unsigned>;
template class Tuple<3, float>;

template class Vector<2, unsigned>;
template class Vector<2, float>;
template class Vector<3, unsigned char>;
template class Vector<3, float>;

template class Point<2, int>;
template class Point<2, unsigned>;
template class Point<2, float>;
template class Point<3, unsigned>;

template class TupleConstBorrow<1, unsigned>;
template class TupleConstBorrow<2, unsigned>;
template class TupleConstBorrow<2, float>;
template class TupleConstBorrow<3, float>;
template class VectorConstBorrow<2, unsigned>;
template class VectorConstBorrow<3, float>;
template class TupleConstSlice<0, 1, unsigned>;
template class TupleConstSlice<1, 3, unsigned>;

template class Hyperrectangle<2, int>;
template class Hyperrectangle<2, unsigned>;
template class Hyperrectangle<2, float>;
template class Hyperrectangle<3, unsigned>;
template class Hyperellipsoid<2, float>;

template class SignalBase<2, char, char*>;
template class Signal<2, char>;
template class SignalBase<2, unsigned char, unsigned char*>;
template class Signal<2, unsigned char>;
template class SignalBase<2, float, float*>;
template class Signal<2, float>;
template class SignalBase<3, unsigned char, unsigned char*>;
template class Signal<3, unsigned char>;
template class SignalBase<1, short, short*>;
template class SignalBorrow<1, short>;
template class SignalBorrow<2, unsigned char>;
template class SignalBase<1, unsigned char, const unsigned char*>;
template class SignalConstBorrow<1, unsigned char>;
template class SignalBase<2, unsigned char, const unsigned char*>;
template class SignalConstBorrow<2, unsigned char>;
template class SignalBase<2, short, const short*>;
template class SignalConstBorrow<2, short>;
template class SignalBase<3, char, const char*>;
template class SignalConstBorrow<3, char>;
template class SignalBase<3, unsigned char, const unsigned char*>;
template class SignalConstBorrow<3, unsigned char>;

template class BinarySignalBase<2, unsigned, unsigned*>;
template class BinarySignal<2, unsigned>;

} // namespace VORN
