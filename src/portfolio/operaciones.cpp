#include "portfolio/operaciones.h"

#include "store/session.h"

namespace tesorel
{

void Operaciones_::OperacionesDe(double valor)
{
    lineas_ = leerHistorico(*s_.Base_Datos, s_.Usuario_Numero, valor);
    siguiente_ = 0;
}

std::unique_ptr<Paquete_> Operaciones_::Leer()
{
    if (Eof())
        return nullptr;
    return std::make_unique<Paquete_>(Paquete_::de(lineas_[siguiente_++]));
}

} // namespace tesorel
