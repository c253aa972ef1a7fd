#!/usr/bin/env python3
"""Writes the supplier invoices the purchase tests and the demo import: one CFDi 3.2, one 3.3
and one 4.0 from the SAT's test taxpayer EKU9003173C9, sealed with its test CSD.

    hacer_muestras.py SAT_DIR DESTINO

SAT_DIR holds csd/ and cfdi32/ (the SAT's style sheet and schema of 3.2). The 3.2 cadena comes
from the SAT's style sheet; the 3.3 and 4.0 ones are built here in the order of the SAT's
annex for the nodes these documents use (no style sheet of those versions is at hand)."""
import base64, os, subprocess, sys, tempfile

SAT, DESTINO = sys.argv[1], sys.argv[2]
CSD = os.path.join(SAT, 'csd', 'EKU9003173C9_30001000000500003416')
NO_CERTIFICADO = '30001000000500003416'
CONCEPTOS = [('1-00001', 10, 12.5), ('1-00002', 4, 30.0), ('1-00003', 2.5, 8.2)]
FECHA = '2026-11-02T10:15:00'


def openssl(*args, entrada=None):
    return subprocess.run(['openssl', *args], input=entrada, capture_output=True, check=True).stdout


def sello(cadena, digest):
    with tempfile.NamedTemporaryFile(suffix='.pem') as llave:
        llave.write(openssl('pkcs8', '-inform', 'DER', '-in', CSD + '.key', '-passin',
                            'pass:12345678a'))
        llave.flush()
        firma = openssl('dgst', '-' + digest, '-sign', llave.name, entrada=cadena.encode())
    return base64.b64encode(firma).decode()


def certificado():
    return base64.b64encode(open(CSD + '.cer', 'rb').read()).decode()


def cifras():
    filas = [(c, q, p, round(q * p, 2)) for c, q, p in CONCEPTOS]
    subtotal = round(sum(f[3] for f in filas), 2)
    iva = round(subtotal * 0.16, 2)
    return filas, subtotal, iva, round(subtotal + iva, 2)


def cfdi32():
    filas, subtotal, iva, total = cifras()
    conceptos = ''.join(
        f'<cfdi:Concepto cantidad="{q}" unidad="PIEZA" noIdentificacion="{c}" '
        f'descripcion="ARTICULO {c}" valorUnitario="{p:.2f}" importe="{i:.2f}"/>'
        for c, q, p, i in filas)
    xml = ('<?xml version="1.0" encoding="UTF-8"?>\n'
           '<cfdi:Comprobante xmlns:cfdi="http://www.sat.gob.mx/cfd/3" '
           'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" '
           'xsi:schemaLocation="http://www.sat.gob.mx/cfd/3 '
           'http://www.sat.gob.mx/sitio_internet/cfd/3/cfdv32.xsd" version="3.2" serie="PA" '
           f'folio="321" fecha="{FECHA}" sello="@SELLO@" formaDePago="PAGO EN UNA SOLA EXHIBICION" '
           f'noCertificado="{NO_CERTIFICADO}" certificado="{certificado()}" '
           f'subTotal="{subtotal:.2f}" total="{total:.2f}" tipoDeComprobante="ingreso" '
           'metodoDePago="01" LugarExpedicion="42501">'
           '<cfdi:Emisor rfc="EKU9003173C9" nombre="ESCUELA KEMPER URGATE">'
           '<cfdi:RegimenFiscal Regimen="GENERAL DE LEY PERSONAS MORALES"/></cfdi:Emisor>'
           '<cfdi:Receptor rfc="XAXX010101000" nombre="FERRETERIA DEMO"/>'
           f'<cfdi:Conceptos>{conceptos}</cfdi:Conceptos>'
           f'<cfdi:Impuestos totalImpuestosTrasladados="{iva:.2f}"><cfdi:Traslados>'
           f'<cfdi:Traslado impuesto="IVA" tasa="16.00" importe="{iva:.2f}"/>'
           '</cfdi:Traslados></cfdi:Impuestos></cfdi:Comprobante>\n')
    with tempfile.NamedTemporaryFile('w', suffix='.xml') as sin_sello:
        sin_sello.write(xml)
        sin_sello.flush()
        cadena = subprocess.run(
            ['xsltproc', '--nonet', os.path.join(SAT, 'cfdi32', 'cadenaoriginal_3_2.xslt'),
             sin_sello.name], capture_output=True, check=True, text=True).stdout
    return xml.replace('@SELLO@', sello(cadena, 'sha1'))


def moderno(version):
    """3.3 and 4.0: the same purchase, capitalised attributes, SHA-256 seal."""
    cuatro = version == '4.0'
    filas, subtotal, iva, total = cifras()
    espacio = 'http://www.sat.gob.mx/cfd/4' if cuatro else 'http://www.sat.gob.mx/cfd/3'
    raiz = [('Version', version), ('Serie', 'PB' if cuatro else 'PC'),
            ('Folio', '404' if cuatro else '333'), ('Fecha', FECHA), ('FormaPago', '01'),
            ('NoCertificado', NO_CERTIFICADO), ('SubTotal', f'{subtotal:.2f}'), ('Moneda', 'MXN'),
            ('Total', f'{total:.2f}'), ('TipoDeComprobante', 'I')]
    raiz += [('Exportacion', '01')] if cuatro else []
    raiz += [('MetodoPago', 'PUE'), ('LugarExpedicion', '42501')]
    emisor = [('Rfc', 'EKU9003173C9'), ('Nombre', 'ESCUELA KEMPER URGATE'),
              ('RegimenFiscal', '601')]
    receptor = [('Rfc', 'XAXX010101000'), ('Nombre', 'FERRETERIA DEMO')]
    receptor += ([('DomicilioFiscalReceptor', '42501'), ('RegimenFiscalReceptor', '616'),
                  ('UsoCFDI', 'S01')] if cuatro else [('UsoCFDI', 'G01')])
    conceptos = []
    for c, q, p, i in filas:
        atributos = [('ClaveProdServ', '31161500'), ('NoIdentificacion', c), ('Cantidad', str(q)),
                     ('ClaveUnidad', 'H87'), ('Unidad', 'PIEZA'), ('Descripcion', f'ARTICULO {c}'),
                     ('ValorUnitario', f'{p:.2f}'), ('Importe', f'{i:.2f}')]
        atributos += [('ObjetoImp', '02')] if cuatro else []
        traslado = [('Base', f'{i:.2f}'), ('Impuesto', '002'), ('TipoFactor', 'Tasa'),
                    ('TasaOCuota', '0.160000'), ('Importe', f'{round(i * 0.16, 2):.2f}')]
        conceptos.append((atributos, traslado))
    iva = round(sum(round(i * 0.16, 2) for _, _, _, i in filas), 2)
    total = round(subtotal + iva, 2)
    raiz[8] = ('Total', f'{total:.2f}')
    traslado_total = [('Base', f'{subtotal:.2f}')] if cuatro else []
    traslado_total += [('Impuesto', '002'), ('TipoFactor', 'Tasa'), ('TasaOCuota', '0.160000'),
                       ('Importe', f'{iva:.2f}')]
    valores = [v for _, v in raiz + emisor + receptor]
    for atributos, traslado in conceptos:
        valores += [v for _, v in atributos + traslado]
    valores += [v for _, v in traslado_total] + [f'{iva:.2f}']
    cadena = '||' + '|'.join(valores) + '||'

    def attrs(pares):
        return ' '.join(f'{k}="{v}"' for k, v in pares)
    esquema = 'cfdv40.xsd' if cuatro else 'cfdv33.xsd'
    ruta = '4' if cuatro else '3'
    cuerpo = ''.join(
        f'<cfdi:Concepto {attrs(a)}><cfdi:Impuestos><cfdi:Traslados>'
        f'<cfdi:Traslado {attrs(t)}/></cfdi:Traslados></cfdi:Impuestos></cfdi:Concepto>'
        for a, t in conceptos)
    return ('<?xml version="1.0" encoding="UTF-8"?>\n'
            f'<cfdi:Comprobante xmlns:cfdi="{espacio}" '
            'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" '
            f'xsi:schemaLocation="{espacio} http://www.sat.gob.mx/sitio_internet/cfd/{ruta}/{esquema}" '
            f'{attrs(raiz)} Sello="{sello(cadena, "sha256")}" Certificado="{certificado()}">'
            f'<cfdi:Emisor {attrs(emisor)}/><cfdi:Receptor {attrs(receptor)}/>'
            f'<cfdi:Conceptos>{cuerpo}</cfdi:Conceptos>'
            f'<cfdi:Impuestos TotalImpuestosTrasladados="{iva:.2f}"><cfdi:Traslados>'
            f'<cfdi:Traslado {attrs(traslado_total)}/></cfdi:Traslados></cfdi:Impuestos>'
            '</cfdi:Comprobante>\n')


os.makedirs(DESTINO, exist_ok=True)
for nombre, texto in [('proveedor_cfdi32.xml', cfdi32()), ('proveedor_cfdi33.xml', moderno('3.3')),
                      ('proveedor_cfdi40.xml', moderno('4.0'))]:
    with open(os.path.join(DESTINO, nombre), 'w') as f:
        f.write(texto)
