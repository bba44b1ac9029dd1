#pragma once

#include "host/core/VRKPrintFileGenerator.h"

class VRKPrintHPGL2Generator;
class VRKPrintHPGLProperties;

// HP-GL for pen plotters. The generator writes nothing itself: it owns an HP-GL/2 generator
// switched to the HP-GL dialect and hands it the job frame, colours, moves, lines, fills and
// widths. Every other drawing call reaches those through the host's defaults (curves flattened,
// text drawn as geometry). Pages and bitmaps do not exist on a pen plotter and are dropped.
class VRKPrintHPGLGenerator : public VRKPrintFileGenerator {
    VRK_DECLARE_CLASS(VRKPrintHPGLGenerator)

  public:
    VRKPrintHPGLGenerator();
    ~VRKPrintHPGLGenerator() override;

    // The HP-GL settings record (pens, origin) that the inner generator's record owns.
    VRKBaseUnknown* GetProperties() override;
    // Attaches the stream to this generator and to the inner one, and keeps its private data.
    void Attach(VRKPrintStream* stream) override;

    VRKPrintHPGL2Generator* GetInnerGenerator() const { return inner; }
    void* GetStreamPrivateData() const { return privateData; }

  protected:
    void DrvBegin(const VRKPrintParameters& params) override;
    void DrvEnd() override;
    void DrvFormFeed() override;
    void DrvMoveTo(float x, float y) override;
    void DrvLineTo(float x, float y) override;
    void DrvFillArea(int nbPolygons, const int* nbPoints, const float* points) override;
    void DrvDrawBitmap(float x, float y, const VRKPixelImage* image) override;
    void DrvDefineColor(int index, float r, float g, float b) override;
    void DrvSelectDrawColor(int index) override;
    void DrvSelectFillColor(int index) override;
    void DrvSetDrawWidth(float width) override;
    void DrvSetPolygonFillRule(int rule) override;

    VRKPrintHPGL2Generator* inner = nullptr;
    VRKPrintHPGLProperties* hpglProperties = nullptr;
    void* privateData = nullptr;
};

// Creates an HP-GL generator, or returns null.
extern "C" VRKBaseUnknown* fctCreateVRKPrintHPGLGenerator();
