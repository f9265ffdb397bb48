#include "muestra/conceptos.h"

#include <array>

namespace muestra {
namespace {

constexpr Perfil kGeneral = {"1", 0, 40, 1800};
constexpr Perfil kMaterial = {"1", 0, 12, 240};
constexpr Perfil kAlimentos = {"23", 0, 25, 600};
constexpr Perfil kHosteleria = {"2", 0, 15, 320};
constexpr Perfil kLibros = {"31", 0, 10, 180};
constexpr Perfil kProfesional = {"1", 15, 120, 1500};
constexpr Perfil kNuevoProfesional = {"1", 7, 90, 700};
constexpr Perfil kAlquiler = {"1", 15, 450, 1600};
constexpr Perfil kGestoria = {"10", 0, 30, 260};
constexpr Perfil kExento = {"0", 0, 20, 900};
constexpr Perfil kMixto = {"123", 0, 30, 400};

constexpr std::array kConceptos = {
    Concepto{"101", "Suministros Ibáñez y Muñoz, S.L.", &kGeneral},
    Concepto{"102", "Papelería La Cigüeña Azul", &kMaterial},
    Concepto{"103", "Ferretería Hermanos Nuño", &kMaterial},
    Concepto{"104", "Talleres Ocaña-Brull, S.A.", &kGeneral},
    Concepto{"105", "Gráficas del Almirez", &kGeneral},
    Concepto{"106", "Carpintería Núñez Arriaza", &kGeneral},
    Concepto{"107", "Transportes Valdeñoro", &kGeneral},
    Concepto{"108", "Embalajes Íñigo Castañar, S.L.", &kGeneral},
    Concepto{"109", "Limpiezas Aguanieve", &kMaterial},
    Concepto{"110", "Electricidad Begoña Zuñeda", &kGeneral},
    Concepto{"111", "Fontanería Peñuela e Hijos", &kMaterial},
    Concepto{"112", "Cristalería Añover del Sur", &kGeneral},
    Concepto{"113", "Pinturas Tío Damián", &kMaterial},
    Concepto{"114", "Rótulos Luz de Otoño", &kGeneral},
    Concepto{"115", "Climatización Sañudo y Gálvez", &kGeneral},
    Concepto{"116", "Extintores Vega Larrañaga", &kMaterial},
    Concepto{"117", "Mobiliario Cuatro Álamos", &kGeneral},
    Concepto{"118", "Informática Ñandú, S.L.", &kGeneral},
    Concepto{"119", "Mensajería Paso Ligero", &kMaterial},
    Concepto{"120", "Uniformes Doña Úrsula", &kGeneral},
    Concepto{"121", "Maderas Echániz Pavón", &kGeneral},
    Concepto{"122", "Cerámicas Ruiz de Oñoro", &kGeneral},
    Concepto{"123", "Recambios El Piñón", &kMaterial},
    Concepto{"124", "Plásticos Güemes, S.A.", &kGeneral},
    Concepto{"201", "Frutas Señorío de Yeste", &kAlimentos},
    Concepto{"202", "Panadería Trigo y Añil", &kAlimentos},
    Concepto{"203", "Bodegas Muñoverde", &kAlimentos},
    Concepto{"204", "Lácteos Piedra Caída", &kAlimentos},
    Concepto{"205", "Aceites Cañalejo, S.C.", &kAlimentos},
    Concepto{"206", "Café y Té Albariño Díaz", &kAlimentos},
    Concepto{"211", "Hostal El Búho Pequeño", &kHosteleria},
    Concepto{"212", "Restaurante Casa Íscar", &kHosteleria},
    Concepto{"213", "Taxis de la Rañada", &kHosteleria},
    Concepto{"214", "Floristería Campanilla", &kHosteleria},
    Concepto{"221", "Librería El Cuaderno Gris", &kLibros},
    Concepto{"222", "Ediciones Otoñales", &kLibros},
    Concepto{"223", "Prensa y revistas", &kLibros},
    Concepto{"301", "Begoña Azpeitia Núñez, abogada", &kProfesional},
    Concepto{"302", "Íñigo Salvatierra, arquitecto", &kProfesional},
    Concepto{"303", "Estudio de diseño Ana Güell", &kProfesional},
    Concepto{"304", "Martín Peñaranda, traductor", &kNuevoProfesional},
    Concepto{"305", "Lucía Ordóñez, fotógrafa", &kNuevoProfesional},
    Concepto{"306", "Notaría de la plaza Vieja", &kProfesional},
    Concepto{"311", "Alquiler del local de la calle Mayor", &kAlquiler},
    Concepto{"312", "Alquiler del almacén de Las Viñas", &kAlquiler},
    Concepto{"321", "Gestoría Bañuelos y Asociados", &kGestoria},
    Concepto{"322", "Asesoría fiscal Téllez Núñez", &kGestoria},
    Concepto{"401", "Energía eléctrica", &kGeneral},
    Concepto{"402", "Teléfono y datos", &kMaterial},
    Concepto{"403", "Agua y basuras", &kHosteleria},
    Concepto{"404", "Combustible de las furgonetas", &kMaterial},
    Concepto{"405", "Economato Nuestra Señora de la Peña", &kMixto},
    Concepto{"406", "Almacenes Añorbe", &kMixto},
    Concepto{"501", "Seguro del almacén", &kExento},
    Concepto{"502", "Seguro de los vehículos", &kExento},
    Concepto{"503", "Correos y sellos", &kExento},
    Concepto{"504", "Formación del personal", &kExento},
    Concepto{"505", "Comisiones bancarias", &kExento},
    Concepto{"601", "Nóminas", nullptr},
    Concepto{"602", "Seguridad Social", nullptr},
    Concepto{"603", "Préstamo de la furgoneta", nullptr},
    Concepto{"604", "Impuesto de actividades", nullptr},
};

}  // namespace

std::span<const Concepto> Conceptos() {
  return kConceptos;
}

}  // namespace muestra
