// Shows a picture that was drawn from an earlier place of the viewer.
cbuffer Geometry : register(b0) {
    float4x4 world;
    float4x4 view;
    float4x4 projection;
    float4 firstColour;  // ambient light
    float4 secondColour; // directional light
    float4 thirdColour;  // added to what the lights give
    float opacity;
    float shaderParam1;
    float shaderParam2;
    float shaderParam3;
    float shaderParam4;
    float unused1;
    float unused2;
    float unused3;
    float4 fourthColour; // highlight
    float4x4 matrices[100];
};

cbuffer Picture : register(b1) {
    float2 texel; // the size of one, in texture coordinates
    float2 unused4;
};

Texture2D picture : register(t0);
SamplerState pictureSampler : register(s0);

struct Vertex {
    float3 position : POSITION;
    float3 normal : NORMAL;
    float2 texturePosition : TEXCOORD0;
    float2 secondTexturePosition : TEXCOORD1;
    uint4 blendIndices : BLENDINDICES;
    float4 blendWeights : BLENDWEIGHT;
};

struct Point {
    float4 position : SV_Position;
    float4 earlier : TEXCOORD0; // clip space
    float3 viewNormal : TEXCOORD1;
};

// The picture was drawn earlier with matrices[0] from world to clip space; it is put where its points are now.
Point VS(Vertex vertex) {
    Point result;
    float4 inWorld = mul(float4(vertex.position, 1.0), world);
    result.position = mul(mul(inWorld, view), projection);
    result.earlier = mul(inWorld, matrices[0]);
    float4 viewNormal = mul(mul(float4(vertex.normal, 0.0), world), view);
    result.viewNormal = viewNormal.xyz;
    return result;
}

float4 PS(Point input) : SV_Target {
    // The light comes over the viewer's shoulder and shines on both sides of a face, as faces are not culled.
    float facing = abs(dot(input.viewNormal, float3(0.36, 0.48, -0.8))) / max(length(input.viewNormal), 0.000001);
    float3 lights = firstColour.rgb + secondColour.rgb * facing;
    float3 added = thirdColour.rgb + fourthColour.rgb * pow(facing, max(shaderParam2, 0.000001));
    float2 at = float2(0.5 + 0.5 * input.earlier.x / input.earlier.w, 0.5 - 0.5 * input.earlier.y / input.earlier.w);
    // Two texels keep the filter from the far edge, as the sampler wraps.
    float2 inside = clamp(at, 2.0 * texel, 1.0 - 2.0 * texel);
    float4 colour = picture.Sample(pictureSampler, inside);
    return float4(colour.rgb * lights + added, opacity);
}
